# What Windows reads of a file before it runs it: version and manifest. Nothing on other systems.
#
#   jlandxml_windows_resources(TARGET MANIFEST JAPANESE ENGLISH)    MANIFEST: a template in packaging/windows;
#                                                                  JAPANESE, ENGLISH: what the file is
if(WIN32)
    enable_language(RC)
endif()

function(jlandxml_windows_resources target manifest japanese english)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
        set(extension exe)
        set(file_type VFT_APP)
        set(manifest_id 1) # the process's
    else()
        set(extension dll)
        set(file_type VFT_DLL)
        set(manifest_id 2) # the library's own, whatever the host's is
    endif()
    string(REPLACE "." "," version_numbers ${PROJECT_VERSION}.0)
    set(manifest_file ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/${manifest}.in ${manifest_file} @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/Resources.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}.rc PROPERTIES OBJECT_DEPENDS ${manifest_file})
endfunction()
