# Installs the drawing library and its devices, takes the program out of the README as it stands there, builds
# it against the installed packages, runs it and looks at what it wrote.
# Variables: SOURCE and BUILD folder, GENERATOR of the build, FLAGS for the compiler.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output
    WORKING_DIRECTORY ${work})
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
endfunction()

# The first block of a language in the README.
function(take language file)
  string(REGEX MATCH "\n```${language}\n([^`]*)\n```" block "${readme}")
  if(block STREQUAL "")
    message(FATAL_ERROR "The README has no block of ${language}")
  endif()
  file(WRITE ${work}/${file} "${CMAKE_MATCH_1}\n")
endfunction()

set(work ${BUILD}/gral_package)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})
file(READ ${SOURCE}/gral/README.md readme)
take(cpp decay.cpp)
take(cmake CMakeLists.txt)
foreach(component gral qt_devices)
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/prefix --component ${component})
endforeach()
run(${CMAKE_COMMAND} -S ${work} -B ${work}/build -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${work}/prefix
  "-DCMAKE_CXX_FLAGS=${FLAGS}")
run(${CMAKE_COMMAND} --build ${work}/build)
run(${work}/build/decay)
foreach(expected "png;89504e47" "svg;3c3f786d" "pdf;25504446")
  list(GET expected 0 ending)
  list(GET expected 1 start)
  file(READ ${work}/decay.${ending} bytes LIMIT 4 HEX)
  if(NOT bytes STREQUAL start)
    message(FATAL_ERROR "decay.${ending} begins with ${bytes}")
  endif()
endforeach()
file(GLOB joining ${work}/prefix/lib/vor_kel/*vor_pdf_pages*)
if(NOT joining)
  message(FATAL_ERROR "The library that joins pages is not installed")
endif()
