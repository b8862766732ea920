# How the folders declare what they build. Source lists are explicit.
#
#   vantrel_engine(<target> SOURCES ... [LINK ...] [DEFINITIONS ...])
#       Static library without windows.
#   vantrel_windows_part(<target> SOURCES ... [LINK ...] [DEFINITIONS ...])
#       Static library with windows; brings wxWidgets along.
#   vantrel_module(<target> SOURCES ... [LINK ...] [DEFINITIONS ...] [STAGE <folder>])
#       Library that is loaded at run time, staged to bin or another folder of the stage.
#   vantrel_program(<target> SOURCES ... [LINK ...] [DEFINITIONS ...])
#       Program, staged to bin.
#   vantrel_tool(<target> SOURCES ... [LINK ...] [DEFINITIONS ...])
#       Program without windows, staged to bin and told to module makers by the package.
#   vantrel_stage_files(<target> FOLDER <folder of the stage> FILES ...)
#       Copies files into the stage as they are.
#   vantrel_test(<target> SOURCES ... [LINK ...] [DEFINITIONS ...] [DEPENDS ...] [WINDOW])
#       GoogleTest program; one entry in CTest for each test. It may have a `main` of its
#       own. DEPENDS names targets that must be there at run time. WINDOW: every test has
#       a display with a window manager to itself.
#   vantrel_fuzzer(<target> SOURCES ... [LINK ...] [DEFINITIONS ...] CORPUS <folder> [MAX_LENGTH <bytes>])
#       libFuzzer program. The folder holds the seeds.
#   vantrel_bench(<target> SOURCES ... [LINK ...] [DEFINITIONS ...] [WINDOW])
#       Google Benchmark program. WINDOW: it runs on a display of its own.
#
# For a target that a folder makes itself:
#
#   vantrel_apply_defaults(<target>)
#       Include folders, warnings, hidden symbols: what all of our code has in common.
#   vantrel_stage_library(<target>)
#       Stages a shared library that others link to bin. It may not link windows.
#
# What is staged is installed to the same place, unless a test made it.

include_guard(GLOBAL)

function(vantrel_apply_defaults target)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Framework/include>"
        "$<BUILD_INTERFACE:${VANTREL_GENERATED_INCLUDE_DIR}>")
    target_compile_options(${target} PRIVATE ${VANTREL_WARNINGS})
    set_target_properties(${target} PROPERTIES COMPILE_WARNING_AS_ERROR ON)
endfunction()

set(VANTREL_TESTS_DIR "${PROJECT_SOURCE_DIR}/tests")

# Puts the libraries of a folder of the stage beside the program's, found from there. What
# follows goes to `install`.
function(vantrel_stage_target target folder origin)
    set_target_properties(${target} PROPERTIES
        PREFIX ""
        RUNTIME_OUTPUT_DIRECTORY "${VANTREL_STAGE_DIR}/${folder}"
        LIBRARY_OUTPUT_DIRECTORY "${VANTREL_STAGE_DIR}/${folder}"
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "${origin}")
    cmake_path(IS_PREFIX VANTREL_TESTS_DIR "${CMAKE_CURRENT_SOURCE_DIR}" isOfATest)
    if(NOT isOfATest)
        install(TARGETS ${target} ${ARGN} RUNTIME DESTINATION "${folder}" LIBRARY DESTINATION "${folder}")
    endif()
endfunction()

# A symbol that nothing defines is found when the library is linked, not when a user loads
# it. Sanitizers leave theirs to the program.
function(vantrel_forbid_undefined target)
    if(VANTREL_PLATFORM STREQUAL "Posix" AND NOT VANTREL_SANITIZERS)
        target_link_options(${target} PRIVATE LINKER:-z,defs)
    endif()
endfunction()

macro(vantrel_parse)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "WINDOW" "STAGE;FOLDER;CORPUS;MAX_LENGTH"
        "SOURCES;LINK;DEFINITIONS;DEPENDS;FILES")
    if(ARG_UNPARSED_ARGUMENTS OR ARG_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "${target}: not understood: ${ARG_UNPARSED_ARGUMENTS} ${ARG_KEYWORDS_MISSING_VALUES}")
    endif()
endmacro()

function(vantrel_engine target)
    vantrel_parse()
    add_library(${target} STATIC ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PUBLIC ${ARG_LINK})
    set_target_properties(${target} PROPERTIES VANTREL_WINDOWS OFF)
endfunction()

function(vantrel_windows_part target)
    vantrel_parse()
    add_library(${target} STATIC ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PUBLIC ${ARG_LINK} vantrel_wx)
endfunction()

function(vantrel_stage_library target)
    set_target_properties(${target} PROPERTIES VANTREL_WINDOWS OFF)
    vantrel_stage_target(${target} bin "$ORIGIN" EXPORT VantrelFrameworkTargets)
    vantrel_forbid_undefined(${target})
endfunction()

function(vantrel_module target)
    vantrel_parse()
    if(NOT ARG_STAGE)
        set(ARG_STAGE bin)
    endif()
    file(RELATIVE_PATH toBin "/${ARG_STAGE}" "/bin")
    add_library(${target} MODULE ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PRIVATE ${ARG_LINK})
    if(toBin)
        vantrel_stage_target(${target} "${ARG_STAGE}" "$ORIGIN/${toBin}")
    else()
        vantrel_stage_target(${target} "${ARG_STAGE}" "$ORIGIN")
    endif()
    vantrel_forbid_undefined(${target})
endfunction()

function(vantrel_program target)
    vantrel_parse()
    add_executable(${target} ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PRIVATE ${ARG_LINK})
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
    vantrel_stage_target(${target} bin "$ORIGIN")
endfunction()

function(vantrel_tool target)
    vantrel_parse()
    add_executable(${target} ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PRIVATE ${ARG_LINK})
    set_target_properties(${target} PROPERTIES VANTREL_WINDOWS OFF)
    vantrel_stage_target(${target} bin "$ORIGIN" EXPORT VantrelFrameworkTargets)
endfunction()

function(vantrel_stage_files target)
    vantrel_parse()
    set(copies)
    foreach(file IN LISTS ARG_FILES)
        cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
        cmake_path(GET file FILENAME name)
        set(copy "${VANTREL_STAGE_DIR}/${ARG_FOLDER}/${name}")
        add_custom_command(OUTPUT "${copy}"
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${VANTREL_STAGE_DIR}/${ARG_FOLDER}"
            COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${copy}"
            DEPENDS "${file}"
            VERBATIM)
        list(APPEND copies "${copy}")
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${copies})
    install(FILES ${copies} DESTINATION "${ARG_FOLDER}")
endfunction()

# The user's own settings must neither change a test nor be changed by one.
set(VANTREL_TEST_HOME "${PROJECT_BINARY_DIR}/test-home")
file(MAKE_DIRECTORY "${VANTREL_TEST_HOME}")
set(VANTREL_TEST_ENVIRONMENT
    "HOME=set:${VANTREL_TEST_HOME}"
    "LANG=set:C.UTF-8"
    "LC_ALL=unset:"
    "LANGUAGE=unset:"
    "XDG_CONFIG_HOME=unset:"
    "XDG_DATA_HOME=unset:"
    "XDG_CACHE_HOME=unset:")

# How a sanitized program runs: any finding ends it with a failure.
set(VANTREL_ASAN_OPTIONS "strict_string_checks=1:check_initialization_order=1:detect_stack_use_after_return=1")
set(VANTREL_UBSAN_OPTIONS "halt_on_error=1:print_stacktrace=1")
set(VANTREL_LSAN_OPTIONS "suppressions=${PROJECT_SOURCE_DIR}/tests/Support/lsan.supp:print_suppressions=0")

function(vantrel_test target)
    vantrel_parse()
    add_executable(${target} ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    # A `main` of the test's own is taken instead of the one in the static library.
    target_link_libraries(${target} PRIVATE ${ARG_LINK} GTest::gmock GTest::gtest GTest::gmock_main)
    if(ARG_DEPENDS)
        add_dependencies(${target} ${ARG_DEPENDS})
    endif()

    set(environment ${VANTREL_TEST_ENVIRONMENT})
    set(launcher)
    set(timeLimit 120)
    set(labels unit)
    if(VANTREL_SANITIZERS)
        set(timeLimit 300)
        set(asanOptions "${VANTREL_ASAN_OPTIONS}:detect_leaks=1")
        if(ARG_WINDOW)
            # The toolkit and what it loads keep memory to the end in more places than a
            # list can follow; leaks of our own are found in the tests without windows.
            set(asanOptions "${VANTREL_ASAN_OPTIONS}:detect_leaks=0")
            # The same while the tests are being listed.
            set(launcher env "ASAN_OPTIONS=${asanOptions}")
        endif()
        list(APPEND environment
            "ASAN_OPTIONS=set:${asanOptions}"
            "UBSAN_OPTIONS=set:${VANTREL_UBSAN_OPTIONS}"
            "LSAN_OPTIONS=set:${VANTREL_LSAN_OPTIONS}")
    endif()
    if(ARG_WINDOW)
        set(labels window)
        list(APPEND launcher "${PROJECT_SOURCE_DIR}/cmake/with-display.sh")
    else()
        list(APPEND environment "DISPLAY=unset:" "WAYLAND_DISPLAY=unset:")
    endif()
    list(APPEND launcher "${PROJECT_SOURCE_DIR}/cmake/whole-test.sh")
    set_target_properties(${target} PROPERTIES CROSSCOMPILING_EMULATOR "${launcher}")

    # The list goes through several scripts of CMake, each of which would split it.
    string(REPLACE ";" "\\\\\\\\\\\\\\\\;" environment "${environment}")
    gtest_discover_tests(${target}
        DISCOVERY_TIMEOUT 60
        PROPERTIES
            TIMEOUT ${timeLimit}
            LABELS ${labels}
            ENVIRONMENT_MODIFICATION "${environment}")
endfunction()

function(vantrel_fuzzer target)
    if(NOT VANTREL_BUILD_FUZZERS)
        return()
    endif()
    vantrel_parse()
    if(NOT ARG_MAX_LENGTH)
        set(ARG_MAX_LENGTH 65536)
    endif()
    cmake_path(ABSOLUTE_PATH ARG_CORPUS BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    if(NOT IS_DIRECTORY "${ARG_CORPUS}")
        message(FATAL_ERROR "${target}: no corpus folder ${ARG_CORPUS}")
    endif()
    add_executable(${target} EXCLUDE_FROM_ALL ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PRIVATE ${ARG_LINK})
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
    add_dependencies(fuzzers ${target})
    set_property(GLOBAL APPEND PROPERTY VANTREL_FUZZERS
        "${target}|$<TARGET_FILE:${target}>|${ARG_CORPUS}|${ARG_MAX_LENGTH}")
endfunction()

function(vantrel_bench target)
    vantrel_parse()
    add_executable(${target} EXCLUDE_FROM_ALL ${ARG_SOURCES})
    vantrel_apply_defaults(${target})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${target} PRIVATE ${ARG_LINK} benchmark::benchmark benchmark::benchmark_main)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bench")
    add_dependencies(benchmarks ${target})
    set(kind)
    if(ARG_WINDOW)
        set(kind window)
    endif()
    set_property(GLOBAL APPEND PROPERTY VANTREL_BENCHMARKS "${target}|$<TARGET_FILE:${target}>|${kind}")
endfunction()

# Adds a folder that builds something.
function(vantrel_add_folder folder)
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt")
        add_subdirectory(${folder})
    endif()
endfunction()

# What the scripts that run fuzz targets and benchmarks go by: one line each.
function(vantrel_write_lists)
    foreach(name IN ITEMS FUZZERS BENCHMARKS)
        get_property(lines GLOBAL PROPERTY VANTREL_${name})
        list(JOIN lines "\n" text)
        if(lines)
            string(APPEND text "\n")
        endif()
        string(TOLOWER ${name} file)
        file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/${file}.txt" CONTENT "${text}")
    endforeach()
endfunction()
