# The finished files of the examples follow the schema of the exchange standard.
#
#   cmake -DXMLLINT=... -DSCHEMA=<the schema> -DFILE=<finished file> -P CheckSchema.cmake
cmake_minimum_required(VERSION 3.25)

if(NOT EXISTS ${SCHEMA} OR NOT XMLLINT)
    message("skipped: there is no schema (${SCHEMA}) or no xmllint")
    return()
endif()
execute_process(COMMAND ${XMLLINT} --noout --schema ${SCHEMA} ${FILE} COMMAND_ERROR_IS_FATAL ANY)
