# Which system the program is built for, and how all of it is compiled.

if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
    set(VANTREL_PLATFORM Windows)
    set(VANTREL_EXPORT_ATTRIBUTE "__attribute__((dllexport))")
else()
    set(VANTREL_PLATFORM Posix)
    set(VANTREL_EXPORT_ATTRIBUTE "__attribute__((visibility(\"default\")))")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(VANTREL_CCACHE ccache)
if(VANTREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # A clone elsewhere finds what was compiled here: names below the tree count from its root.
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
        CCACHE_NOHASHDIR=1 "${VANTREL_CCACHE}")
endif()

# The tree that an installed program has; the program is always run from it.
set(VANTREL_STAGE_DIR "${PROJECT_BINARY_DIR}/stage")

set(VANTREL_GENERATED_INCLUDE_DIR "${PROJECT_BINARY_DIR}/generated/include")
configure_file("${PROJECT_SOURCE_DIR}/Framework/include/Vantrel/Export.h.in"
    "${VANTREL_GENERATED_INCLUDE_DIR}/Vantrel/Export.h" @ONLY)

set(VANTREL_WARNINGS
    -Wall
    -Wextra
    -Wpedantic
    -Wshadow
    -Wnon-virtual-dtor
    -Wold-style-cast
    -Woverloaded-virtual)

if(VANTREL_SANITIZERS)
    add_compile_options(-fsanitize=${VANTREL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VANTREL_SANITIZERS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The checks that a sanitizer adds make this warning see reads that can't happen.
        list(APPEND VANTREL_WARNINGS -Wno-maybe-uninitialized)
    endif()
endif()

if(NOT CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
