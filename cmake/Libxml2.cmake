# libxml2 for the schema check of finished files, compiled as part of the build, so that both platforms judge alike: its
# reader and its schemas alone, nothing that opens files or connections. Where its source comes from: the cache variable
# LIBXML2_SOURCE_DIR, else the copy that tools/setup.sh fetched. Without either the program is built without the check.
set(LIBXML2_SOURCE_DIR "" CACHE PATH "A folder that holds the source of libxml2 2.9")

if(NOT LIBXML2_SOURCE_DIR AND EXISTS ${CMAKE_SOURCE_DIR}/.deps/libxml2/xmlschemas.c)
    set(libxml2_dir ${CMAKE_SOURCE_DIR}/.deps/libxml2)
else()
    set(libxml2_dir ${LIBXML2_SOURCE_DIR})
endif()

# A function, so that its settings reach nobody else.
function(jlandxml_add_libxml2)
    set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
    set(BUILD_SHARED_LIBS OFF)
    set(CMAKE_UNITY_BUILD OFF) # its sources have names of their own in common
    foreach(part C14N CATALOG DEBUG DOCB FTP HTML HTTP ICONV ICU ISO8859X LEGACY LZMA MEM_DEBUG MODULES PROGRAMS PYTHON
            RUN_DEBUG SCHEMATRON TESTS THREADS THREAD_ALLOC VALID WRITER XINCLUDE XPTR ZLIB)
        set(LIBXML2_WITH_${part} OFF)
    endforeach()
    foreach(part OUTPUT PATTERN PUSH READER REGEXPS SAX1 SCHEMAS TREE XPATH)
        set(LIBXML2_WITH_${part} ON)
    endforeach()
    # Its threads.c takes the header alone for a reason to use threads.
    set(HAVE_PTHREAD_H FALSE)
    add_subdirectory(${libxml2_dir} ${CMAKE_BINARY_DIR}/libxml2 EXCLUDE_FROM_ALL)
    get_target_property(includes LibXml2 INTERFACE_INCLUDE_DIRECTORIES)
    set_target_properties(LibXml2 PROPERTIES INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${includes}")
    if(NOT MSVC)
        # Somebody else's code: its warnings and its undefined behaviour are no findings of ours.
        target_compile_options(LibXml2 PRIVATE -w)
        # It tells of its own faults by the names of its files. Whole ones would tell where it was built, and the compiler's
        # cache makes them relative to that, or not.
        file(RELATIVE_PATH relative_dir ${CMAKE_BINARY_DIR} ${libxml2_dir})
        target_compile_options(LibXml2 PRIVATE -fmacro-prefix-map=${libxml2_dir}/= -fmacro-prefix-map=${relative_dir}/=)
    endif()
    if(JLANDXML_SANITIZE)
        target_compile_options(LibXml2 PRIVATE -fno-sanitize=all)
    endif()
endfunction()

if(libxml2_dir)
    jlandxml_add_libxml2()
endif()
