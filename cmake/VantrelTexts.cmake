# The texts that users read, made into sources by Lang/make_texts.py while the build is
# configured, so that every tool that reads sources finds them.
#
#   VANTREL_LANGUAGE_FOLDERS              a folder of Lang, and of the stage, for each language
#   vantrel_text_source(<variable> <folder>)
#       Path of the source with the texts of a language, for the resource library of the system.

include_guard(GLOBAL)

find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(VANTREL_LANGUAGE_FOLDERS english french japanese korean zh_CN zh_TW)

# `source` is a folder of Lang or a file in one.
function(vantrel_make_texts kind source path)
    set(texts "${PROJECT_SOURCE_DIR}/Lang/${source}")
    execute_process(
        COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/Lang/make_texts.py" ${kind} "${texts}" "${path}"
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "The texts of Lang/${source} are not understood.")
    endif()
    if(IS_DIRECTORY "${texts}")
        file(GLOB texts CONFIGURE_DEPENDS "${texts}/*.texts")
    endif()
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/Lang/make_texts.py" ${texts})
endfunction()

function(vantrel_text_source variable folder)
    if(VANTREL_PLATFORM STREQUAL "Windows")
        set(kind rc)
        set(path "${PROJECT_BINARY_DIR}/generated/Lang/${folder}/Texts.rc")
    else()
        set(kind table)
        set(path "${PROJECT_BINARY_DIR}/generated/Lang/${folder}/Texts.cpp")
    endif()
    vantrel_make_texts(${kind} ${folder} "${path}")
    set(${variable} "${path}" PARENT_SCOPE)
endfunction()

vantrel_make_texts(ids english "${VANTREL_GENERATED_INCLUDE_DIR}/Lang/TextIds.h")

# What the program itself holds, for a start without any language library.
set(VANTREL_OWN_TEXTS "${PROJECT_BINARY_DIR}/generated/Lang/OwnTexts.cpp")
vantrel_make_texts(table english "${VANTREL_OWN_TEXTS}")

# The texts of rules, a header RuleModules/Texts/<Area>.h for each rules-<area>.texts.
file(GLOB ruleTexts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/Lang/english/rules-*.texts")
foreach(source IN LISTS ruleTexts)
    string(REGEX REPLACE ".*/rules-(.*)\\.texts$" "\\1" area "${source}")
    set(header)
    string(REPLACE "-" ";" words "${area}")
    foreach(word IN LISTS words)
        string(SUBSTRING "${word}" 0 1 first)
        string(SUBSTRING "${word}" 1 -1 rest)
        string(TOUPPER "${first}" first)
        string(APPEND header "${first}${rest}")
    endforeach()
    vantrel_make_texts(rules "english/rules-${area}.texts" "${VANTREL_GENERATED_INCLUDE_DIR}/RuleModules/Texts/${header}.h")
endforeach()
