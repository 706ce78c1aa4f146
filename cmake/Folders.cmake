# Where things are installed, below the prefix. The module is loaded by hosts and by the command line and linked by few, so
# it has a folder of its own, the same on every system. Packagers give other folders, by a path below the prefix or a whole
# one; a default over what they gave would have CMake take a path below the prefix for one below the current folder.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR)
    set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Libraries")
endif()
if(NOT DEFINED CMAKE_INSTALL_DOCDIR)
    set(CMAKE_INSTALL_DOCDIR share/doc/jlandxml-convert CACHE PATH "Documents")
endif()
include(GNUInstallDirs)

# What is installed finds its parts from where it lies itself, so each folder is one as seen from the prefix.
foreach(folder BINDIR LIBDIR INCLUDEDIR DATADIR MANDIR DOCDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
        file(RELATIVE_PATH CMAKE_INSTALL_${folder} "${CMAKE_INSTALL_PREFIX}" "${CMAKE_INSTALL_${folder}}")
    endif()
endforeach()
set(JLANDXML_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/jlandxml)
file(RELATIVE_PATH JLANDXML_MODULE_FOLDER /${CMAKE_INSTALL_BINDIR} /${JLANDXML_INSTALL_MODULEDIR}) # from the programs
