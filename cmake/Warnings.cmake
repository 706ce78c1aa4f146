# The warnings that every target of the project is built with; none of them is let through.
function(jlandxml_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /WX /utf-8 /permissive- /Zc:__cplusplus)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Werror)
    endif()
endfunction()
