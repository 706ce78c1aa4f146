# The module exports one symbol, and on Windows it needs system libraries only.
#
#   cmake -DMODULE=<the module> -DNM=... -DOBJDUMP=... -DWINDOWS=<bool> -P CheckModule.cmake
cmake_minimum_required(VERSION 3.25)

if(WINDOWS)
    execute_process(COMMAND ${OBJDUMP} -p ${MODULE} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
    # One line for each exported name, between the table's title and the next blank line.
    string(REGEX MATCH "Ordinal/Name Pointer. Table[^\n]*\n((\t[^\n]*\n)*)" table "${dump}")
    string(REGEX REPLACE "\t[^\n]* ([^ \n]+)\n" "\\1;" exports "${CMAKE_MATCH_1}")
    list(REMOVE_ITEM exports "")
    set(system_libraries ADVAPI32.dll COMCTL32.dll comdlg32.dll GDI32.dll KERNEL32.dll msvcrt.dll ole32.dll OLEAUT32.dll
        SHELL32.dll SHLWAPI.dll USER32.dll UxTheme.dll)
    string(REGEX MATCHALL "DLL Name: [^\n\r]+" imports "${dump}")
    list(TRANSFORM imports REPLACE "DLL Name: " "")
    foreach(library ${imports})
        if(NOT library IN_LIST system_libraries)
            message(FATAL_ERROR "${MODULE} needs ${library}")
        endif()
    endforeach()
    if(NOT imports)
        message(FATAL_ERROR "no imports were found")
    endif()
else()
    execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "[^\n]* ([^ \n]+)\n" "\\1;" exports "${dump}")
    list(REMOVE_ITEM exports "")
endif()

if(NOT exports STREQUAL ExecuteQuorvane)
    message(FATAL_ERROR "${MODULE} exports: ${exports}")
endif()
