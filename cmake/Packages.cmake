# The packages that CPack makes of what is installed; tools/package.sh calls it.
set(CPACK_PACKAGE_NAME jlandxml-convert)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "converter from LandXML exports to J-LandXML")
set(CPACK_PACKAGE_DESCRIPTION "Turns the LandXML export of a road and river design application
into J-LandXML, in which designs are delivered for Japanese public works,
versions 1.5 to 1.7. Holds the module that a host application loads, a
command line for batch use, and a program that checks and draws finished
files.")
set(CPACK_PACKAGE_CONTACT "${JLANDXML_CONTACT}")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_MONOLITHIC_INSTALL ON) # the libraries inside know components, which are nothing to a user
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/PrepareFiles.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/OrderArchive.cmake)
set(CPACK_PACKAGING_FOLDER ${PROJECT_SOURCE_DIR}/packaging)
set(CPACK_INSTALLER_NOTICES ${JLANDXML_INSTALLER_NOTICES})
set(CPACK_LIBRARY_ARCHITECTURE ${CMAKE_LIBRARY_ARCHITECTURE})

if(WIN32)
    set(CPACK_GENERATOR ZIP NSIS)
    set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-windows-x86_64)
    set(CPACK_PACKAGE_INSTALL_DIRECTORY JLandXmlConvert)
    # The installer's script is the one beside this project's other packaging files.
    list(APPEND CPACK_MODULE_PATH ${PROJECT_SOURCE_DIR}/packaging/windows)
else()
    set(CPACK_GENERATOR TGZ DEB)
    set(CPACK_STRIP_FILES ON) # Windows files are linked without symbols, and stripping would note its time in them
    set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
    set(CPACK_DEBIAN_PACKAGE_SECTION science)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-ipafont-gothic)
    # What a host is built with lies in the package too.
    set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cmake, pkg-config, qt6-base-dev")
endif()
include(CPack)
