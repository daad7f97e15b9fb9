# How every target is built: one language level, one set of warnings, one arithmetic.

include(CMakePackageConfigHelpers)

add_library(vor_flags INTERFACE)
target_include_directories(vor_flags INTERFACE ${CMAKE_SOURCE_DIR})
# Results must be the same at every optimisation level: no contraction of a*b+c, no rewriting of pow().
target_compile_options(vor_flags INTERFACE
  -Wall -Wextra -Wconversion -Wdouble-promotion -Wshadow -ffp-contract=off -fno-builtin-pow)
# clang counts among them what is exact, float to double, and each int as an index; g++ does not.
target_compile_options(vor_flags INTERFACE
  $<$<CXX_COMPILER_ID:Clang>:-Wno-double-promotion;-Wno-sign-conversion>)
# g++ 12 removes, as a dead store, what a variable of a class holds before a call assigns to it, although a call that
# throws assigns nothing; statements under the guard live on that value.
target_compile_options(vor_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fno-tree-dse>)
if(VOR_WERROR)
  target_compile_options(vor_flags INTERFACE -Werror)
endif()
# g++ 12 takes optimised joins of texts for copies that overlap or leave their bounds; the builds with
# sanitizers look for those.
target_compile_options(vor_flags INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow>)
if(CMAKE_UNITY_BUILD)
  # Several sources joined to one: their unnamed namespaces are no header's, although g++ takes them for one's.
  target_compile_options(vor_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
# What computes little is as fast with little optimisation, which takes half of the time of much.
target_compile_options(vor_flags INTERFACE
  $<$<AND:$<BOOL:$<TARGET_PROPERTY:VOR_GLUE>>,$<NOT:$<CONFIG:Debug>>>:-O1>)
if(VOR_SANITIZE)
  # g++ 12 takes variables for uninitialised that the instrumented code only seems to pass by.
  target_compile_options(vor_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_compile_options(vor_flags INTERFACE
    -fsanitize=${VOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # To ask of each pointer whether it is null and aligned takes a quarter of compiling. A program that follows a null
  # pointer stops anyway, and none takes the bytes of one type for a larger one.
  target_compile_options(vor_flags INTERFACE -fno-sanitize=null,alignment)
  target_link_options(vor_flags INTERFACE -fsanitize=${VOR_SANITIZE})
  # Headers of others go beyond what the language allows, which no test of ours mends.
  target_compile_options(vor_flags INTERFACE
    $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/cmake/unsanitized.txt>)
  # The standard library's own bounds, and no zeros by luck in what nobody has set.
  target_compile_definitions(vor_flags INTERFACE _GLIBCXX_ASSERTIONS)
  target_compile_options(vor_flags INTERFACE -ftrivial-auto-var-init=pattern)
  # Nor to ask of which class an object is: what tests work on is the library's, which asks.
  target_compile_options(vor_flags INTERFACE
    $<$<BOOL:$<TARGET_PROPERTY:VOR_FEWER_CHECKS>>:-fno-sanitize=vptr;-g0>)
  # To optimise all those checks takes longer than to run them where little is computed.
  target_compile_options(vor_flags INTERFACE $<$<BOOL:$<TARGET_PROPERTY:VOR_GLUE>>:-O0>)
endif()
# What people get stops where a call of the C library or a return would go beyond what it may touch, and takes all
# addresses before it begins. g++ of Debian makes programs that can lie anywhere by itself.
if(NOT VOR_SANITIZE)
  set(vor_guards $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3;-fstack-protector-strong>)
  target_link_options(vor_flags INTERFACE -Wl,-z,relro,-z,now)
endif()
if(VOR_COVERAGE)
  # The counts stay in a file that is mapped, so that they also count in a process that ends in the midst of things. All
  # processes of a program share it: what one adds must not undo what another adds at the same time.
  target_compile_options(vor_flags INTERFACE -fcoverage-mapping
    -fprofile-instr-generate=${CMAKE_BINARY_DIR}/counts/%m%c.profraw
    "SHELL:-mllvm -runtime-counter-relocation" -fprofile-update=atomic)
  target_link_options(vor_flags INTERFACE -fprofile-instr-generate)
  # A function of an unnamed namespace is known by its name and that of its source, which joined sources share.
  target_compile_options(vor_flags INTERFACE "SHELL:-Xclang -main-file-name -Xclang $<TARGET_PROPERTY:NAME>")
endif()

# vor_library(name [GLUE] [DEPENDS library ...] [WITHOUT file ...]): the static library vor_<name> from the sources of
# the present folder. Glue hands numbers and texts on, and computes little.
function(vor_library name)
  cmake_parse_arguments(LIBRARY "GLUE" "" "DEPENDS;WITHOUT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(file ${LIBRARY_WITHOUT})
    list(REMOVE_ITEM sources ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  endforeach()
  list(TRANSFORM LIBRARY_DEPENDS PREPEND vor_)
  if(sources)
    add_library(vor_${name} STATIC ${sources})
    target_link_libraries(vor_${name} PUBLIC $<BUILD_INTERFACE:vor_flags> ${LIBRARY_DEPENDS})
    target_compile_options(vor_${name} PRIVATE ${vor_guards})
    set_target_properties(vor_${name} PROPERTIES VOR_GLUE ${LIBRARY_GLUE})
  else()
    add_library(vor_${name} INTERFACE)
    target_link_libraries(vor_${name} INTERFACE $<BUILD_INTERFACE:vor_flags> ${LIBRARY_DEPENDS})
  endif()
endfunction()

# vor_test(name [LIBRARIES library ...] [LIBS target ...] [WITHOUT file ...] [LONG suite ...]): one test program from
# tests/<name>/**/*.cpp; LONG are the suites that take longest.
function(vor_test name)
  cmake_parse_arguments(TEST "" "" "LIBRARIES;LIBS;WITHOUT;LONG" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  foreach(file ${TEST_WITHOUT})
    list(REMOVE_ITEM sources ${CMAKE_CURRENT_SOURCE_DIR}/${name}/${file})
  endforeach()
  if(NOT sources)
    return()
  endif()
  string(REPLACE "/" "_" target test_${name})
  list(TRANSFORM TEST_LIBRARIES PREPEND vor_)
  add_executable(${target} ${sources})
  target_link_libraries(${target} PRIVATE ${TEST_LIBRARIES} vor_doubles ${TEST_LIBS} GTest::gmock_main)
  # One precompiled header, made with the first program, serves all; so all are compiled as those with the toolkit.
  target_compile_options(${target} PRIVATE -fPIC)
  if(TARGET test_base AND NOT target STREQUAL test_base)
    target_precompile_headers(${target} REUSE_FROM test_base)
  else()
    target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <gmock/gmock.h>)
  endif()
  # Tests spend their time in the libraries; to optimise their own code would take most of a build.
  target_compile_options(${target} PRIVATE -O0)
  set_target_properties(${target} PROPERTIES VOR_FEWER_CHECKS ON)
  vor_run(${target} LONG ${TEST_LONG} SOURCES ${sources})
endfunction()

# vor_run(target [LONG suite ...] SOURCES file ...): each suite of tests in the sources as a test of the run, named
# <target>.<suite>, so that a failure tells its subject and all processors have work. What takes long begins first, so
# that none waits for it at the end. Suites that no source has at this time are run as <target>.others.
# Forms are driven by real events, without a screen.
function(vor_run target)
  cmake_parse_arguments(RUN "" "" "LONG;SOURCES" ${ARGN})
  foreach(source ${RUN_SOURCES})
    file(STRINGS ${source} tests REGEX "^TEST(_F|_P)?\\(")
    list(TRANSFORM tests REPLACE "^TEST[_FP]*\\(([A-Za-z0-9_]+).*" "\\1")
    list(APPEND suites ${tests})
  endforeach()
  list(REMOVE_DUPLICATES suites)
  foreach(suite ${suites})
    add_test(NAME ${target}.${suite} COMMAND ${target} --gtest_filter=${suite}.*:*/${suite}.*)
    list(APPEND names ${target}.${suite})
    string(APPEND known "${suite}.*:*/${suite}.*:")
  endforeach()
  add_test(NAME ${target}.others COMMAND ${target} --gtest_filter=-${known})
  set_tests_properties(${names} ${target}.others PROPERTIES TIMEOUT 120 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
  list(TRANSFORM RUN_LONG PREPEND ${target}.)
  set_tests_properties(${RUN_LONG} PROPERTIES COST 100)
endfunction()

# vor_package(name [LIBRARIES library ...] [NEEDS package ...] HEADERS header ... [PARTS header ...]): installs the
# library as the CMake package vor_<name> with the target vor::<name>, in the component of developers. With it go the
# libraries of which it is made, each of which is in no other package; the packages that it needs are found by its
# users. HEADERS are those that the README of the folder tells of, PARTS what they include beside one another.
add_custom_target(development)
function(vor_package name)
  cmake_parse_arguments(PACKAGE "" "" "LIBRARIES;NEEDS;HEADERS;PARTS" ${ARGN})
  foreach(library ${PACKAGE_LIBRARIES} ${name})
    list(APPEND targets vor_${library})
    target_include_directories(vor_${library} INTERFACE $<INSTALL_INTERFACE:include/vor_kel>)
    target_compile_features(vor_${library} PUBLIC cxx_std_20)
    # Shared libraries can be made of it; nobody puts functions of their own in the place of some.
    target_compile_options(vor_${library} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
    set_target_properties(vor_${library} PROPERTIES EXPORT_NAME ${library} POSITION_INDEPENDENT_CODE ON)
  endforeach()
  add_dependencies(development ${targets})

  set(folder lib/cmake/vor_${name})
  install(TARGETS ${targets} EXPORT vor_${name} ARCHIVE DESTINATION lib COMPONENT development)
  install(EXPORT vor_${name} NAMESPACE vor:: FILE vor_${name}Targets.cmake DESTINATION ${folder}
    COMPONENT development)
  foreach(header ${PACKAGE_HEADERS} ${PACKAGE_PARTS})
    cmake_path(GET header PARENT_PATH place)
    install(FILES ${CMAKE_SOURCE_DIR}/${header} DESTINATION include/vor_kel/${place} COMPONENT development)
  endforeach()

  set(config "include(CMakeFindDependencyMacro)\nlist(PREPEND CMAKE_MODULE_PATH \${CMAKE_CURRENT_LIST_DIR})\n")
  foreach(need ${PACKAGE_NEEDS})
    if(need MATCHES "^vor_")
      string(APPEND need " ${PROJECT_VERSION} EXACT")
    elseif(EXISTS ${CMAKE_SOURCE_DIR}/cmake/Find${need}.cmake)
      install(FILES ${CMAKE_SOURCE_DIR}/cmake/Find${need}.cmake DESTINATION ${folder} COMPONENT development)
    endif()
    string(APPEND config "find_dependency(${need})\n")
  endforeach()
  string(APPEND config "list(POP_FRONT CMAKE_MODULE_PATH)\n"
    "include(\${CMAKE_CURRENT_LIST_DIR}/vor_${name}Targets.cmake)\n")
  set(written ${CMAKE_CURRENT_BINARY_DIR}/vor_${name})
  file(CONFIGURE OUTPUT ${written}Config.cmake CONTENT "${config}" @ONLY)
  write_basic_package_version_file(${written}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${written}Config.cmake ${written}ConfigVersion.cmake DESTINATION ${folder} COMPONENT development)
endfunction()
