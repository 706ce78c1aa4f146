# Gives what goes into a package the form that the package wants. CPack runs it once for each package, after the files were
# installed into a folder and before they are packed.
cmake_minimum_required(VERSION 3.25)

set(root ${CPACK_TEMPORARY_DIRECTORY})

function(run)
    execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${root} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The manual's pages are left out where the tool that makes them is missing, which is well for a build, but not for a package.
file(GLOB_RECURSE manual ${root}/*/manual.ja.html)
if(NOT manual)
    message(FATAL_ERROR "The manual's pages are missing: cmark-gfm makes them once the build is set up anew")
endif()

# Debian's manual pages and logs of changes are compressed, the notices have one name, and zsh and pkg-config look elsewhere.
function(prepare_debian_package)
    set(documents ${root}/usr/share/doc/jlandxml-convert)
    file(RENAME ${root}/usr/share/zsh/site-functions ${root}/usr/share/zsh/vendor-completions)
    file(READ ${root}/usr/lib/pkgconfig/jlandxmlconvert.pc pkgconfig)
    string(REPLACE "pcfiledir}/.." "pcfiledir}/../.." pkgconfig "${pkgconfig}") # one folder deeper
    file(REMOVE_RECURSE ${root}/usr/lib/pkgconfig)
    file(WRITE ${root}/usr/lib/${CPACK_LIBRARY_ARCHITECTURE}/pkgconfig/jlandxmlconvert.pc "${pkgconfig}")
    file(READ ${documents}/NOTICES.txt notices)
    file(WRITE ${documents}/copyright
        "Copyright: the authors of the J-LandXML converter. They have chosen no licence yet: all rights are theirs.\n\n${notices}")
    file(REMOVE ${documents}/NOTICES.txt)
    file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    file(WRITE ${documents}/changelog.Debian
        "jlandxml-convert (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium\n\n"
        "  * Changes are told in changelog.gz.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    file(MAKE_DIRECTORY ${root}/usr/share/lintian/overrides)
    file(COPY_FILE ${CPACK_PACKAGING_FOLDER}/debian/lintian-overrides ${root}/usr/share/lintian/overrides/jlandxml-convert)
    file(GLOB_RECURSE pages ${root}/usr/share/man/*.1)
    run(gzip -9n ${documents}/changelog ${documents}/changelog.Debian ${pages})
    run(chmod -R go-w,a+rX .)
endfunction()

# What the installer's script looks at, puts in its place and takes away again: always in one order.
function(list_for_installer)
    file(GLOB_RECURSE entries LIST_DIRECTORIES true RELATIVE ${root} ${root}/*)
    list(SORT entries)
    set(look)
    set(install)
    set(remove)
    set(remove_folders)
    foreach(entry ${entries})
        string(REPLACE "/" "\\" name ${entry})
        if(IS_DIRECTORY ${root}/${entry})
            string(PREPEND remove_folders "RMDir \"$INSTDIR\\${name}\"\n")
        else()
            get_filename_component(folder ${entry} DIRECTORY)
            string(REPLACE "/" "\\" folder ${folder})
            string(APPEND install "SetOutPath \"$INSTDIR\\${folder}\"\nFile \"${root}/${entry}\"\n")
            string(APPEND look "!insertmacro LOOK_WHETHER_IN_USE \"$INSTDIR\\${name}\"\n")
            string(PREPEND remove "!insertmacro REMOVE_FILE \"$INSTDIR\\${name}\"\n")
        endif()
    endforeach()
    file(WRITE ${root}-look.nsh "${look}")
    file(WRITE ${root}-install.nsh "${install}")
    file(WRITE ${root}-remove.nsh "${remove}")
    file(WRITE ${root}-remove-folders.nsh "${remove_folders}")
endfunction()

if(CPACK_GENERATOR STREQUAL DEB)
    prepare_debian_package()
elseif(CPACK_GENERATOR STREQUAL NSIS)
    # Always, where a plain copy spares what is of the same second: all notices are written in one.
    foreach(name NOTICES.txt jlandxml-convert.spdx)
        file(COPY_FILE ${CPACK_INSTALLER_NOTICES}/${name} ${root}/share/doc/jlandxml-convert/${name})
    endforeach()
    list_for_installer()
else()
    # Whoever unpacks an archive begins at its top.
    file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/README.txt ${root}/README.txt)
endif()

# The times of building would make two packages of one commit differ.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    run(find . -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +)
endif()
