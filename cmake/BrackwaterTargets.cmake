# One place for what every target of the project shares: language, warnings, sanitizers, and the three kinds of
# target (a library a folder, a tool, a test program a folder).

include(CheckCXXCompilerFlag)
find_package(PkgConfig REQUIRED)
# Earlier builds of libgsf 1.14.50 have known overflows in the compound-file reader; Debian's +deb12u1 mends them.
pkg_check_modules(GSF REQUIRED IMPORTED_TARGET libgsf-1>=1.14.50)
pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0)
pkg_check_modules(XML2 REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-i18n icu-uc)
find_package(fmt REQUIRED)
if(BRACKWATER_STATIC_ICU)
  # Programs start 6 % faster without this library's symbols to bind. The other two libraries of ICU stay shared, since
  # libxml2 loads them anyway. All must be of one version and so come from one folder. A fix in ICU needs a new build.
  pkg_get_variable(icu_folder icu-i18n libdir)
  find_library(BRACKWATER_ICU_ARCHIVE libicui18n.a PATHS "${icu_folder}" NO_DEFAULT_PATH)
  if(BRACKWATER_ICU_ARCHIVE)
    get_target_property(icu_libraries PkgConfig::ICU INTERFACE_LINK_LIBRARIES)
    list(TRANSFORM icu_libraries REPLACE "^.*libicui18n.*$" "${BRACKWATER_ICU_ARCHIVE}")
    set_property(TARGET PkgConfig::ICU PROPERTY INTERFACE_LINK_LIBRARIES "${icu_libraries}")
  else()
    message(STATUS "No libicui18n.a in ${icu_folder}: ICU stays a shared library")
  endif()
endif()

add_library(brackwater_settings INTERFACE)
target_compile_features(brackwater_settings INTERFACE cxx_std_20)
target_include_directories(brackwater_settings INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(brackwater_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                       -Woverloaded-virtual -Wconversion -Wsign-conversion -Wold-style-cast -fno-fast-math)
if(BRACKWATER_WERROR)
  target_compile_options(brackwater_settings INTERFACE -Werror)
endif()
if(BRACKWATER_SANITIZE)
  target_compile_options(brackwater_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                         -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 takes the checks that the sanitizers put into std::optional for reads of its empty value.
    target_compile_options(brackwater_settings INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_link_options(brackwater_settings INTERFACE -fsanitize=address,undefined)
endif()
if(BRACKWATER_FUZZ)
  target_compile_options(brackwater_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(BRACKWATER_COVERAGE)
  target_compile_options(brackwater_settings INTERFACE --coverage)
  target_link_options(brackwater_settings INTERFACE --coverage)
endif()
if(BRACKWATER_HARDENING)
  # For programs that read other people's files. The fortified functions need an optimized build; level 3 also checks
  # buffers whose size is known only as the program runs.
  set(fortify_level 3)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12)
    set(fortify_level 2)
  endif()
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON) # for the test of these options
  check_cxx_compiler_flag(-fcf-protection=full BRACKWATER_HAS_CF_PROTECTION)
  target_compile_options(brackwater_settings INTERFACE -fstack-protector-strong -fstack-clash-protection
                         -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify_level} -fPIE
                         -D_GLIBCXX_ASSERTIONS
                         $<$<BOOL:${BRACKWATER_HAS_CF_PROTECTION}>:-fcf-protection=full>)
  target_link_options(brackwater_settings INTERFACE -pie -Wl,-z,relro,-z,now)
endif()

# The allocator of programs that export: records by the million in one phase, all freed in the next. Builds without it
# keep the C library's, which sanitizers and valgrind know.
add_library(brackwater_allocator INTERFACE)
if(BRACKWATER_MIMALLOC)
  find_package(mimalloc 2.0 REQUIRED)
  # No code names the library, so the linker must be told to keep it: it takes the place of the C library's functions. It
  # comes behind the C++ library, whose `new` raises an exception where memory runs out; its own ends the process.
  # Programs name this target first: the loader searches the libraries in their order, and the C++ library has the most
  # symbols that are looked for.
  target_link_libraries(brackwater_allocator INTERFACE stdc++ -Wl,--push-state,--no-as-needed mimalloc -Wl,--pop-state)
endif()

# Files of the current folder and of the named ones below it.
function(brackwater_glob result pattern)
  set(patterns "${CMAKE_CURRENT_SOURCE_DIR}/${pattern}")
  foreach(folder ${ARGN})
    list(APPEND patterns "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${pattern}")
  endforeach()
  file(GLOB files CONFIGURE_DEPENDS ${patterns})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# brackwater_library(NAME [FOLDERS folder...] LINKS target...): the sources of the current folder, and of the folders
# below it that are named, as a library. A folder links only what it may use, so that a dependency in the wrong
# direction does not build.
function(brackwater_library name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LINKS" ${ARGN})
  brackwater_glob(sources "*.cpp" ${ARG_FOLDERS})
  brackwater_glob(headers "*.h" ${ARG_FOLDERS})
  if(sources)
    add_library(${name} STATIC ${sources} ${headers})
    target_link_libraries(${name} PUBLIC brackwater_settings ${ARG_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE brackwater_settings ${ARG_LINKS})
  endif()
endfunction()

# brackwater_tests(NAME [FOLDERS folder...] LINKS target...): the same sources as one GoogleTest program.
function(brackwater_tests name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LINKS" ${ARGN})
  brackwater_glob(sources "*.cpp" ${ARG_FOLDERS})
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE brackwater_settings brackwater_test_support ${ARG_LINKS} GTest::gtest_main
                        GTest::gmock)
  target_compile_definitions(${name} PRIVATE BRACKWATER_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                             BRACKWATER_BINARY_DIR="${CMAKE_BINARY_DIR}")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 600)
endfunction()
