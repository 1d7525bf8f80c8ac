# mydb_enable_warnings(<target>): the warnings that our own code has to be free of. Headers of others are SYSTEM headers
# and stay out of it.
function(mydb_enable_warnings TARGET)
    if(MSVC)
        # 5030: attributes that other compilers know
        target_compile_options(${TARGET} PRIVATE /W4 /wd5030 /utf-8 /permissive- $<$<BOOL:${MYDB_WERROR}>:/WX>)
    else()
        target_compile_options(${TARGET} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wundef
                               $<$<BOOL:${MYDB_WERROR}>:-Werror>)
        # The optimising gcc 12 takes texts that are put in front of or into others for overlapping copies.
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            target_compile_options(${TARGET} PRIVATE -Wno-restrict)
        endif()
    endif()
endfunction()
