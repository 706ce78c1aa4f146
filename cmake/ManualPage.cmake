# Makes a page of a document. Headings can be linked to, and links between documents lead to their pages; one that is
# installed in the folder above is linked to as it is, any other is named without a link.
#
#   cmake -DCMARK=<cmark-gfm> -DSOURCE=<document> -DPAGES=<names of the documents that are pages> -DPAGE=<file to be made>
#         -P ManualPage.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${CMARK} --extension table ${SOURCE} OUTPUT_VARIABLE rest RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CMARK} can't read ${SOURCE}")
endif()

# A heading's own text as a link has it: small letters, blanks as hyphens, no punctuation.
function(make_anchor heading result)
    string(REGEX REPLACE "<[^>]*>|&[a-z]+;" "" anchor "${heading}")
    string(TOLOWER "${anchor}" anchor)
    string(REGEX REPLACE "[][!\"#$%&'()*+,./:;<=>?@^`{|}~]" "" anchor "${anchor}")
    foreach(mark （ ） 「 」 、 。 ・ ： ／ ～)
        string(REPLACE ${mark} "" anchor "${anchor}")
    endforeach()
    string(REPLACE " " "-" anchor "${anchor}")
    set(${result} "${anchor}" PARENT_SCOPE)
endfunction()

set(body "")
set(title "")
while(rest MATCHES "<h([1-6])>([^\n]*)</h[1-6]>")
    set(found "${CMAKE_MATCH_0}")
    set(level ${CMAKE_MATCH_1})
    set(heading "${CMAKE_MATCH_2}")
    if(title STREQUAL "")
        string(REGEX REPLACE "<[^>]*>" "" title "${heading}")
    endif()
    make_anchor("${heading}" anchor)
    string(FIND "${rest}" "${found}" start)
    string(LENGTH "${found}" length)
    math(EXPR behind "${start} + ${length}")
    string(SUBSTRING "${rest}" 0 ${start} before)
    string(SUBSTRING "${rest}" ${behind} -1 rest)
    string(APPEND body "${before}<h${level} id=\"${anchor}\">${heading}</h${level}>")
endwhile()
string(APPEND body "${rest}")

if(SOURCE MATCHES "/README[^/]*$") # the pages lie together, as the documents do, but for the READMEs
    string(REGEX REPLACE "(href|src)=\"docs/" "\\1=\"" body "${body}")
    string(REGEX REPLACE "href=\"([A-Z]+\\.md)" "href=\"../\\1" body "${body}")
endif()
foreach(name ${PAGES})
    string(REGEX REPLACE "href=\"(\\.\\./)?${name}\\.md" "href=\"${name}.html" body "${body}")
endforeach()
string(REGEX REPLACE "<a href=\"([^.\"]|\\.\\./[^A-Z\"])[^\"]*\\.md[^\"]*\">([^<]*)</a>" "\\2" body "${body}")

set(language en)
if(SOURCE MATCHES "\\.ja\\.md$")
    set(language ja)
    # Japanese has no blanks between words, so the end of a line is none either.
    string(REGEX REPLACE "([^\n -~])\n([^\n -~])" "\\1\\2" body "${body}")
endif()
file(WRITE ${PAGE} "<!DOCTYPE html>
<html lang=\"${language}\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width\">
<title>${title}</title>
<style>
body { font: 15px/1.7 \"Yu Gothic UI\", Meiryo, \"Noto Sans CJK JP\", sans-serif; max-width: 1100px; margin: 0 auto; padding: 0 20px 60px; color: #222; }
h1 { font-size: 26px; } h2 { font-size: 21px; border-bottom: 2px solid #456; margin-top: 44px; } h3 { font-size: 17px; margin-top: 28px; }
table { border-collapse: collapse; font-size: 14px; margin: 12px 0; }
th, td { border: 1px solid #bbb; padding: 3px 9px; text-align: left; vertical-align: top; }
th { background: #eef1f4; }
code { font: 13px/1.5 Consolas, \"Noto Sans Mono CJK JP\", monospace; background: #f3f3ee; padding: 0 3px; overflow-wrap: anywhere; }
pre { background: #f3f3ee; padding: 10px; overflow-x: auto; } pre code { padding: 0; overflow-wrap: normal; }
td:last-child code { white-space: nowrap; }
img { max-width: 100%; border: 1px solid #ccc; }
@media print { h2 { break-after: avoid; } tr, img { break-inside: avoid; } }
</style>
</head>
<body>
${body}</body>
</html>
")
