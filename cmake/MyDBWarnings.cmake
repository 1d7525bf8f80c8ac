# mydb_enable_warnings(<target>): the warnings that our own code has to be free of. Headers of others are SYSTEM headers
# and stay out of it.
function(mydb_enable_warnings TARGET)
    if(MSVC)
        # 5030: attributes that other compilers know. 4251, 4275: exported classes with members and bases that are not;
        # host and library have one compiler and one run-time library.
        target_compile_options(${TARGET} PRIVATE /W4 /wd5030 /wd4251 /wd4275 /utf-8 /permissive-
                               $<$<BOOL:${MYDB_WERROR}>:/WX>)
        # 4996: functions of the C library that this compiler would replace with its own
        target_compile_definitions(${TARGET} PRIVATE _CRT_SECURE_NO_WARNINGS _CRT_NONSTDC_NO_WARNINGS)
    else()
        target_compile_options(${TARGET} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wundef
                               $<$<BOOL:${MYDB_WERROR}>:-Werror>)
        # The optimising gcc 12 takes texts that are put in front of or into others for overlapping copies.
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            target_compile_options(${TARGET} PRIVATE -Wno-restrict)
        endif()
    endif()
endfunction()
