# Archives hold their files in the order of the names: the order in which a file system tells them would make two archives of
# one commit differ. CPack runs it once for each package that it has made.
cmake_minimum_required(VERSION 3.25)

cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH parent)
cmake_path(GET CPACK_TEMPORARY_DIRECTORY FILENAME folder)

function(archive_again command)
    file(REMOVE ${CPACK_PACKAGE_FILES})
    execute_process(COMMAND sh -euc "${command}" archive ${folder} ${CPACK_PACKAGE_FILES} WORKING_DIRECTORY ${parent}
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(CPACK_GENERATOR STREQUAL TGZ)
    archive_again("tar --sort=name --owner=root:0 --group=root:0 --format=gnu -c \"$1\" | gzip -9n >\"$2\"")
elseif(CPACK_GENERATOR STREQUAL ZIP)
    archive_again("find \"$1\" -type f | LC_ALL=C sort | zip -q -9 -X \"$2\" -@")
endif()
