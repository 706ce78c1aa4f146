# What distributions ask of programs that read files of any origin, for the libraries inside too: included before any
# target is made. It is for what is shipped, which the optimiser has gone over; the sanitizers watch over more than this.
option(JLANDXML_HARDENING "Build with what distributions ask for; off where they give these flags themselves" ON)
if(JLANDXML_SANITIZE OR MSVC OR NOT JLANDXML_HARDENING)
    return()
endif()
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

set(shipped $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
set(compiled $<AND:${shipped},$<COMPILE_LANGUAGE:C,CXX>>)

# Not every processor has each, nor every system.
set(flags -fstack-protector-strong -mbranch-protection=standard)
if(NOT WIN32)
    list(APPEND flags -fstack-clash-protection -fcf-protection=full)
endif()
foreach(flag ${flags})
    string(MAKE_C_IDENTIFIER has${flag} has_flag)
    check_cxx_compiler_flag(${flag} ${has_flag})
    if(${has_flag})
        add_compile_options($<${compiled}:${flag}>)
    endif()
endforeach()

if(WIN32)
    # The stack protector's own library comes with the flag. The time of linking stands in no file, so that the same
    # sources give the same bytes.
    add_link_options(-fstack-protector-strong LINKER:--dynamicbase,--high-entropy-va,--nxcompat,--no-insert-timestamp
        $<${shipped}:-s>)
else()
    # The C library's checked functions.
    add_compile_options("$<${compiled}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack)
endif()
