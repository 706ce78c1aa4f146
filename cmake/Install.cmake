# What is installed, and where a host's build finds it: the same for `cmake --install` and for every package.
include(CMakePackageConfigHelpers)

execute_process(COMMAND git log -1 "--format=%an <%ae>" WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE committer OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
set(JLANDXML_CONTACT "${committer}" CACHE STRING "Whom users of the packages write to")

install(TARGETS jlandxml-convert jlandxml-inspect)

# The module with its header, its import library on Windows, and the two ways in which a build finds them.
install(TARGETS JLandXmlConvert EXPORT JLandXmlConvert
    RUNTIME DESTINATION ${JLANDXML_INSTALL_MODULEDIR}
    LIBRARY DESTINATION ${JLANDXML_INSTALL_MODULEDIR}
    ARCHIVE DESTINATION ${JLANDXML_INSTALL_MODULEDIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(cmake_package ${CMAKE_INSTALL_LIBDIR}/cmake/JLandXmlConvert)
install(EXPORT JLandXmlConvert NAMESPACE JLandXmlConvert:: FILE JLandXmlConvertConfig.cmake DESTINATION ${cmake_package})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/JLandXmlConvertConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/JLandXmlConvertConfigVersion.cmake DESTINATION ${cmake_package})

if(NOT WIN32)
    # Relative to its own place, so that an unpacked archive serves wherever it lies.
    file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    configure_file(packaging/jlandxmlconvert.pc.in jlandxmlconvert.pc @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/jlandxmlconvert.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

    foreach(page jlandxml-convert jlandxml-inspect)
        foreach(language "" /ja)
            configure_file(docs/man${language}/${page}.1 man${language}/${page}.1 @ONLY)
            install(FILES ${CMAKE_BINARY_DIR}/man${language}/${page}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}${language}/man1)
        endforeach()
        install(FILES packaging/completions/${page}.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
            RENAME ${page})
        install(FILES packaging/completions/_${page} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
    endforeach()
else()
    # For compilers whose linker wants an import library of its own making.
    install(FILES src/run/module/JLandXmlConvert.def DESTINATION ${JLANDXML_INSTALL_MODULEDIR})
endif()

# All that a document leads to is there too.
install(FILES README.md README.ja.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN man EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
include(Notices)

# Whoever has no commit log is told the address itself.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS SECURITY.md)
file(READ SECURITY.md security)
if(JLANDXML_CONTACT)
    string(REPLACE "the address in the commit log" "${JLANDXML_CONTACT}" security "${security}")
endif()
file(WRITE ${CMAKE_BINARY_DIR}/SECURITY.md "${security}")
install(FILES ${CMAKE_BINARY_DIR}/SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
