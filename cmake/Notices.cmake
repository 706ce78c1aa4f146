# What of other people's work lies inside the programs and the module: a file with the notices of each, and an SPDX list with
# versions. Both are made from what the build found, so that they tell of what was built; the notices stand in the
# libraries' own sources or packages. Nothing is installed without a notice of each.

# The version that a header tells.
#
#   jlandxml_version(RESULT HEADER REGEX)    REGEX: its first group is the version
function(jlandxml_version result header regex)
    file(READ ${header} text)
    if(NOT text MATCHES "${regex}")
        message(FATAL_ERROR "${header} tells no version")
    endif()
    set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

set(notices "What lies inside the J-LandXML converter ${PROJECT_VERSION} for ${CMAKE_SYSTEM_NAME}, and the notices of each.\n")
set(spdx_packages)

set(JLANDXML_NOTICES_DIR ${PROJECT_SOURCE_DIR}/.deps/notices CACHE PATH "A folder with NAME.txt, the notice of a library, for those that have it elsewhere than Debian")

# Adds one library: its name, version, licence as SPDX writes it, and the first of some files that has its notice.
macro(jlandxml_inside name version licence)
    set(found)
    foreach(candidate ${JLANDXML_NOTICES_DIR}/${name}.txt ${ARGN})
        if(NOT found AND EXISTS ${candidate})
            set(found ${candidate})
        endif()
    endforeach()
    if(NOT found)
        message(STATUS "No notice of ${name}: nothing can be installed")
        install(CODE "message(FATAL_ERROR \"The notice of ${name} is missing: ${ARGN}; see JLANDXML_NOTICES_DIR\")")
    else()
        # As bytes: a notice may hold what CMake takes for a list.
        file(READ ${found} text)
        string(APPEND notices "\n${name} ${version}\n\n${text}\n")
    endif()
    string(APPEND spdx_packages "
PackageName: ${name}
SPDXID: SPDXRef-${name}
PackageVersion: ${version}
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: false
PackageLicenseConcluded: NOASSERTION
PackageLicenseDeclared: ${licence}
PackageCopyrightText: NOASSERTION
Relationship: SPDXRef-jlandxml-convert CONTAINS SPDXRef-${name}
")
endmacro()

set(packages_documents /usr/share/doc)

jlandxml_version(version ${pugixml_dir}/src/pugixml.hpp "PUGIXML_VERSION [0-9]+ // ([0-9.]+)")
jlandxml_inside(pugixml ${version} MIT ${pugixml_dir}/LICENSE.md ${pugixml_dir}/debian/copyright)
if(TARGET LibXml2)
    jlandxml_version(version ${CMAKE_BINARY_DIR}/libxml2/libxml/xmlversion.h "LIBXML_DOTTED_VERSION \"([0-9.]+)\"")
    jlandxml_inside(libxml2 ${version} MIT ${libxml2_dir}/Copyright ${libxml2_dir}/debian/copyright)
endif()
jlandxml_version(version ${CLI_parent}/CLI/Version.hpp "CLI11_VERSION \"([0-9.]+)\"")
jlandxml_inside(CLI11 ${version} BSD-3-Clause ${packages_documents}/libcli11-dev/copyright)
jlandxml_version(version ${nlohmann_parent}/nlohmann/json.hpp "version ([0-9.]+)")
jlandxml_inside(nlohmann-json ${version} MIT ${packages_documents}/nlohmann-json3-dev/copyright)
if(MINGW)
    # The package's version tells which patches the runtime has; the compiler tells only a short one.
    set(gcc_version ${CMAKE_CXX_COMPILER_VERSION})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE
        COMMAND_ERROR_IS_FATAL ANY)
    file(REAL_PATH "${libgcc}" libgcc)
    find_program(DPKG_QUERY_PROGRAM dpkg-query)
    if(DPKG_QUERY_PROGRAM)
        execute_process(COMMAND ${DPKG_QUERY_PROGRAM} --search ${libgcc} OUTPUT_VARIABLE owner ERROR_QUIET)
        if(owner MATCHES "^([^:, ]+)[:,]")
            execute_process(COMMAND ${DPKG_QUERY_PROGRAM} --show "--showformat=\${Version}" ${CMAKE_MATCH_1} OUTPUT_VARIABLE gcc_version
                COMMAND_ERROR_IS_FATAL ANY)
        endif()
    endif()
    jlandxml_inside(gcc-runtime ${gcc_version} "GPL-3.0-or-later WITH GCC-exception-3.1"
        ${packages_documents}/gcc-mingw-w64-x86-64-posix/copyright)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c - INPUT_FILE ${PROJECT_SOURCE_DIR}/packaging/windows/RuntimeVersion.h
        OUTPUT_VARIABLE version OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCH "[0-9]+ [0-9]+ [0-9]+$" version "${version}")
    string(REPLACE " " "." version "${version}")
    jlandxml_inside(mingw-w64-runtime ${version} "ZPL-2.1 AND MIT AND BSD-3-Clause"
        ${packages_documents}/mingw-w64-x86-64-dev/copyright)
endif()

# Debian's notices name the licences that every Debian has; where the products go, nobody has them.
function(jlandxml_append_licences)
    string(REGEX MATCHALL "/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]" licences "${notices}")
    list(REMOVE_DUPLICATES licences)
    list(SORT licences)
    foreach(licence ${licences})
        if(EXISTS ${licence})
            file(READ ${licence} text)
            string(APPEND notices "\n${licence}\n\n${text}\n")
        endif()
    endforeach()
    set(notices "${notices}" PARENT_SCOPE)
endfunction()

# Writes both files.
function(jlandxml_write_notices folder)
    jlandxml_append_licences()
    string(TIMESTAMP created UTC) # SOURCE_DATE_EPOCH where that is set
    string(UUID document NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8 TYPE SHA1
        NAME "jlandxml-convert ${PROJECT_VERSION} ${CMAKE_SYSTEM_NAME} ${spdx_packages}")
    file(WRITE ${folder}/NOTICES.txt "${notices}")
    file(WRITE ${folder}/jlandxml-convert.spdx "SPDXVersion: SPDX-2.3
DataLicense: CC0-1.0
SPDXID: SPDXRef-DOCUMENT
DocumentName: jlandxml-convert-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}
DocumentNamespace: urn:uuid:${document}
Creator: Tool: CMake-${CMAKE_VERSION}
Created: ${created}

PackageName: jlandxml-convert
SPDXID: SPDXRef-jlandxml-convert
PackageVersion: ${PROJECT_VERSION}
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: false
PackageLicenseConcluded: NOASSERTION
PackageLicenseDeclared: NOASSERTION
PackageCopyrightText: NOASSERTION
Relationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-jlandxml-convert
${spdx_packages}")
endfunction()

jlandxml_write_notices(${CMAKE_BINARY_DIR})
install(FILES ${CMAKE_BINARY_DIR}/NOTICES.txt ${CMAKE_BINARY_DIR}/jlandxml-convert.spdx DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The installer holds parts of the tool that makes it too, and so does the uninstaller, which it leaves with the user: these
# files take the places of the others there.
set(JLANDXML_INSTALLER_NOTICES ${CMAKE_BINARY_DIR}/installer-notices)
find_program(MAKENSIS_PROGRAM makensis)
if(WIN32 AND MAKENSIS_PROGRAM)
    execute_process(COMMAND ${MAKENSIS_PROGRAM} -VERSION OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCH "[0-9]+([.][0-9]+)+" version "${version}")
    jlandxml_inside(nsis ${version} "Zlib AND (CPL-1.0 WITH LZMA-exception)" ${packages_documents}/nsis/copyright)
    jlandxml_write_notices(${JLANDXML_INSTALLER_NOTICES})
endif()
