# Plays every case of tests/e2e at the module's real windows and compares the finished files, byte for byte.
#
#   cmake -DPLAYER=... [-DEMULATOR=...] -DMODULE=... -DSOURCE=<the project> -DWORK=<folder for the output> -P RunCases.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
file(GLOB cases ${SOURCE}/tests/e2e/*/case.json)
set(failures "")
set(played 0)
foreach(case ${cases})
    get_filename_component(folder ${case} DIRECTORY)
    get_filename_component(name ${folder} NAME)
    # The system's save dialog takes no path into a folder that isn't there.
    if(name STREQUAL missing-output-folder)
        continue()
    endif()
    set(out ${WORK}/${name}/out.xml)
    file(MAKE_DIRECTORY ${WORK}/${name})
    # Through files: what Wine leaves in the background would keep pipes open for a minute.
    execute_process(
        COMMAND ${EMULATOR} ${PLAYER} ${MODULE} ${case} ${SOURCE} ${folder} ${out}
        RESULT_VARIABLE status OUTPUT_FILE ${WORK}/${name}/output ERROR_FILE ${WORK}/${name}/output TIMEOUT 120)
    file(READ ${WORK}/${name}/output output)
    if(status EQUAL 77)
        continue()
    endif()
    math(EXPR played "${played} + 1")
    if(NOT status EQUAL 0)
        list(APPEND failures "${name}: status ${status}\n${output}")
    endif()
    if(EXISTS ${folder}/expected.xml)
        execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${out} ${folder}/expected.xml RESULT_VARIABLE differs)
        if(differs)
            list(APPEND failures "${name}: the finished file differs: ${out}")
        endif()
    elseif(EXISTS ${out})
        list(APPEND failures "${name}: a file was produced: ${out}")
    endif()
endforeach()

message(STATUS "${played} cases were played")
if(played LESS 15)
    list(APPEND failures "only ${played} cases were played")
endif()
if(failures)
    list(JOIN failures "\n" text)
    message(FATAL_ERROR "${text}")
endif()
