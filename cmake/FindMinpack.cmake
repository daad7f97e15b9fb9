# The least squares of MINPACK in C, as the target Minpack::Minpack.
find_path(MINPACK_FOLDER cminpack.h PATH_SUFFIXES cminpack-1)
find_library(MINPACK_LIBRARY cminpack)
mark_as_advanced(MINPACK_FOLDER MINPACK_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Minpack REQUIRED_VARS MINPACK_LIBRARY MINPACK_FOLDER)
if(Minpack_FOUND AND NOT TARGET Minpack::Minpack)
  add_library(Minpack::Minpack UNKNOWN IMPORTED)
  set_target_properties(Minpack::Minpack PROPERTIES IMPORTED_LOCATION ${MINPACK_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${MINPACK_FOLDER})
endif()
