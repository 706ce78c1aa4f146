# Where things are installed, below the prefix. The module is loaded by hosts and by the command line and linked by few, so
# it has a folder of its own, the same on every system.
set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Libraries")
set(CMAKE_INSTALL_DOCDIR share/doc/jlandxml-convert CACHE PATH "Documents")
include(GNUInstallDirs)
set(JLANDXML_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/jlandxml)
file(RELATIVE_PATH JLANDXML_MODULE_FOLDER /${CMAKE_INSTALL_BINDIR} /${JLANDXML_INSTALL_MODULEDIR}) # from the programs
