# Tests that are written in Python, with one entry in CTest for each.
#
#   vantrel_script_tests(<class> SCRIPT <file> [PYTHON <interpreter>] [ARGUMENTS ...]
#                        [TIMEOUT <seconds>] [LABEL <label>] [WINDOW])
#       The tests of one class of the script, which is called with the arguments and the name of
#       the test. It skips a test by the status 77. WINDOW: each test has a display with a window
#       manager to itself. VANTREL_SCRIPT_TESTS has the names of the entries afterwards.

include_guard(GLOBAL)

find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(vantrel_script_tests class)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "WINDOW" "SCRIPT;PYTHON;TIMEOUT;LABEL" "ARGUMENTS")
    if(ARG_UNPARSED_ARGUMENTS OR ARG_KEYWORDS_MISSING_VALUES OR NOT ARG_SCRIPT)
        message(FATAL_ERROR "${class}: not understood: ${ARG_UNPARSED_ARGUMENTS} ${ARG_KEYWORDS_MISSING_VALUES}")
    endif()
    foreach(default IN ITEMS "PYTHON ${Python3_EXECUTABLE}" "TIMEOUT 120" "LABEL unit")
        string(REGEX MATCH "^([A-Z]+) (.+)$" default "${default}")
        if(NOT ARG_${CMAKE_MATCH_1})
            set(ARG_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
        endif()
    endforeach()

    set(launcher)
    set(leaks 1)
    if(ARG_WINDOW)
        set(launcher "${PROJECT_SOURCE_DIR}/cmake/with-display.sh")
        set(leaks 0) # as for other tests with windows: the toolkit keeps memory to the end
    endif()
    set(environment ${VANTREL_TEST_ENVIRONMENT} "PYTHONDONTWRITEBYTECODE=set:1")
    if(VANTREL_SANITIZERS)
        list(APPEND environment
            "ASAN_OPTIONS=set:${VANTREL_ASAN_OPTIONS}:detect_leaks=${leaks}"
            "UBSAN_OPTIONS=set:${VANTREL_UBSAN_OPTIONS}")
    endif()

    set(script "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_SCRIPT}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${script}")
    file(STRINGS "${script}" lines REGEX "^(class |    def test_)")
    set(isOfClass OFF)
    set(tests)
    foreach(line IN LISTS lines)
        if(line MATCHES "^class ([A-Za-z0-9_]+)")
            string(COMPARE EQUAL "${CMAKE_MATCH_1}" "${class}" isOfClass)
        elseif(isOfClass)
            string(REGEX MATCH "test_[A-Za-z0-9_]+" test "${line}")
            set(test "${class}.${test}")
            add_test(NAME "${test}" COMMAND ${launcher} "${ARG_PYTHON}" "${script}" ${ARG_ARGUMENTS} "${test}")
            set_tests_properties("${test}" PROPERTIES
                TIMEOUT ${ARG_TIMEOUT}
                LABELS "${ARG_LABEL}"
                SKIP_RETURN_CODE 77
                ENVIRONMENT_MODIFICATION "${environment}")
            list(APPEND tests "${test}")
        endif()
    endforeach()
    if(NOT tests)
        message(FATAL_ERROR "No tests of ${class} in ${script}")
    endif()
    set(VANTREL_SCRIPT_TESTS ${tests} PARENT_SCOPE)
endfunction()
