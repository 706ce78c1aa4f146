# pugixml with wide characters, compiled as part of the build. Where its source comes from: the cache variable
# PUGIXML_SOURCE_DIR, else the copy that tools/setup.sh fetched, else the upstream release.
set(PUGIXML_SOURCE_DIR "" CACHE PATH "A folder that holds the source of pugixml 1.13")

if(PUGIXML_SOURCE_DIR)
    set(pugixml_dir ${PUGIXML_SOURCE_DIR})
elseif(EXISTS ${CMAKE_SOURCE_DIR}/.deps/pugixml/src/pugixml.cpp)
    set(pugixml_dir ${CMAKE_SOURCE_DIR}/.deps/pugixml)
else()
    include(FetchContent)
    FetchContent_Declare(pugixml_source GIT_REPOSITORY https://github.com/zeux/pugixml.git GIT_TAG v1.13)
    FetchContent_GetProperties(pugixml_source)
    if(NOT pugixml_source_POPULATED)
        FetchContent_Populate(pugixml_source)
    endif()
    set(pugixml_dir ${pugixml_source_SOURCE_DIR})
endif()

add_library(pugixml STATIC ${pugixml_dir}/src/pugixml.cpp)
target_include_directories(pugixml SYSTEM PUBLIC ${pugixml_dir}/src)
# The size of the pages that it cuts nodes from is its own; it is named since memory for them is kept ready (PagePool).
target_compile_definitions(pugixml PUBLIC PUGIXML_WCHAR_MODE PUGIXML_NO_XPATH PUGIXML_MEMORY_PAGE_SIZE=32768)
