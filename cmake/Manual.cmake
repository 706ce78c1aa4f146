# The manual as pages for a browser, made of the documents of the repository, with their pictures: target manual_html.
set(JLANDXML_MANUAL_PAGES manual.ja manual warnings batch hosts README.ja README)
set(JLANDXML_MANUAL_FOLDER ${CMAKE_BINARY_DIR}/manual)

find_program(CMARK_PROGRAM cmark-gfm)
if(NOT CMARK_PROGRAM)
    message(STATUS "cmark-gfm is missing: the manual is made into no pages")
    return()
endif()

set(manual_files)
set(manual_pictures)
foreach(page ${JLANDXML_MANUAL_PAGES})
    set(source ${PROJECT_SOURCE_DIR}/docs/${page}.md)
    if(page MATCHES "^README")
        set(source ${PROJECT_SOURCE_DIR}/${page}.md)
    endif()
    set(made ${JLANDXML_MANUAL_FOLDER}/${page}.html)
    add_custom_command(OUTPUT ${made}
        COMMAND ${CMAKE_COMMAND} -DCMARK=${CMARK_PROGRAM} -DSOURCE=${source} "-DPAGES=${JLANDXML_MANUAL_PAGES}" -DPAGE=${made}
            -P ${CMAKE_CURRENT_LIST_DIR}/ManualPage.cmake
        DEPENDS ${source} ${CMAKE_CURRENT_LIST_DIR}/ManualPage.cmake VERBATIM)
    list(APPEND manual_files ${made})

    # Pictures stand beside the pages as they stand beside the documents.
    file(STRINGS ${source} lines REGEX "\\]\\((docs/)?images/" ENCODING UTF-8)
    string(REGEX MATCHALL "images/[a-z-]+\\.png" pictures "${lines}")
    list(APPEND manual_pictures ${pictures})
endforeach()
list(REMOVE_DUPLICATES manual_pictures)
foreach(picture ${manual_pictures})
    add_custom_command(OUTPUT ${JLANDXML_MANUAL_FOLDER}/${picture}
        COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/docs/${picture} ${JLANDXML_MANUAL_FOLDER}/${picture}
        DEPENDS ${PROJECT_SOURCE_DIR}/docs/${picture} VERBATIM)
    list(APPEND manual_files ${JLANDXML_MANUAL_FOLDER}/${picture})
endforeach()
add_custom_target(manual_html ALL DEPENDS ${manual_files})

# One after the other: a page that an earlier build has made of a document that is gone may lie in the folder too.
foreach(page ${JLANDXML_MANUAL_PAGES})
    install(FILES ${JLANDXML_MANUAL_FOLDER}/${page}.html DESTINATION ${CMAKE_INSTALL_DOCDIR}/manual)
endforeach()
list(TRANSFORM manual_pictures PREPEND ${JLANDXML_MANUAL_FOLDER}/)
install(FILES ${manual_pictures} DESTINATION ${CMAKE_INSTALL_DOCDIR}/manual/images)
