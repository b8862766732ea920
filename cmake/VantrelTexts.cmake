# The texts that users read, made into sources by Lang/make_texts.py while the build is
# configured, so that every tool that reads sources finds them.
#
#   VANTREL_LANGUAGE_FOLDERS              a folder of Lang, and of the stage, for each language
#   vantrel_text_source(<variable> <folder>)
#       Path of the source with the texts of a language, for the resource library of the system.

include_guard(GLOBAL)

find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(VANTREL_LANGUAGE_FOLDERS english french japanese korean zh_CN zh_TW)

function(vantrel_make_texts kind folder path)
    set(texts "${PROJECT_SOURCE_DIR}/Lang/${folder}")
    execute_process(
        COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/Lang/make_texts.py" ${kind} "${texts}" "${path}"
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "The texts of Lang/${folder} are not understood.")
    endif()
    file(GLOB sources CONFIGURE_DEPENDS "${texts}/*.texts")
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/Lang/make_texts.py" ${sources})
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
