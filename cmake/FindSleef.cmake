# The elementary functions of SLEEF, as the target Sleef::Sleef.
find_path(SLEEF_FOLDER sleef.h)
find_library(SLEEF_LIBRARY sleef)
mark_as_advanced(SLEEF_FOLDER SLEEF_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Sleef REQUIRED_VARS SLEEF_LIBRARY SLEEF_FOLDER)
if(Sleef_FOUND AND NOT TARGET Sleef::Sleef)
  add_library(Sleef::Sleef UNKNOWN IMPORTED)
  set_target_properties(Sleef::Sleef PROPERTIES IMPORTED_LOCATION ${SLEEF_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${SLEEF_FOLDER})
endif()
