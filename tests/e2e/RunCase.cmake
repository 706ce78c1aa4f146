# Runs one case through the command line and compares what it leaves with what is expected, byte for byte.
#
#   cmake -DPROGRAM=... [-DEMULATOR=...] -DCASE=<folder of the case> -DSOURCE=<the project> -DWORK=<folder for the output>
#         -P RunCase.cmake
#
# case.json: "arguments" (with @SOURCE@, @CASE@ and @OUT@ for the finished file), "status", "stdout" and "stderr" (exact; a
# missing one means empty). expected.xml: the finished file; without it there must be none.
cmake_minimum_required(VERSION 3.25)

file(READ ${CASE}/case.json case)
string(JSON status GET "${case}" status)
string(JSON last_argument LENGTH "${case}" arguments)
math(EXPR last_argument "${last_argument} - 1")

set(out ${WORK}/out.xml)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

set(arguments "")
foreach(index RANGE ${last_argument})
    string(JSON argument GET "${case}" arguments ${index})
    string(REPLACE "@SOURCE@" "${SOURCE}" argument "${argument}")
    string(REPLACE "@CASE@" "${CASE}" argument "${argument}")
    string(REPLACE "@OUT@" "${out}" argument "${argument}")
    list(APPEND arguments "${argument}")
endforeach()

execute_process(
    COMMAND ${EMULATOR} ${PROGRAM} ${arguments}
    RESULT_VARIABLE actual_status
    OUTPUT_FILE ${WORK}/stdout
    ERROR_FILE ${WORK}/stderr
    TIMEOUT 120)

set(failures "")
if(NOT actual_status STREQUAL status)
    list(APPEND failures "status ${actual_status} instead of ${status}")
endif()

foreach(stream stdout stderr)
    string(JSON expected ERROR_VARIABLE missing GET "${case}" ${stream})
    if(missing)
        set(expected "")
    endif()
    string(REPLACE "@SOURCE@" "${SOURCE}" expected "${expected}")
    string(REPLACE "@CASE@" "${CASE}" expected "${expected}")
    file(WRITE ${WORK}/${stream}.expected "${expected}")
    file(READ ${WORK}/${stream} actual)
    if(NOT actual STREQUAL expected)
        list(APPEND failures "${stream}:\n${actual}instead of:\n${expected}")
    endif()
endforeach()

if(EXISTS ${CASE}/expected.xml)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${out} ${CASE}/expected.xml RESULT_VARIABLE differs)
    if(differs)
        list(APPEND failures "the finished file differs: ${out}")
    endif()
elseif(EXISTS ${out})
    list(APPEND failures "a file was produced: ${out}")
endif()

if(failures)
    list(JOIN failures "\n" text)
    message(FATAL_ERROR "${text}")
endif()
