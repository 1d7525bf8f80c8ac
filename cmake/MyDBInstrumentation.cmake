# Sanitizers, coverage and the fuzzer's instrumentation apply to everything that is built, so that library and tests
# agree. A finding ends the program: a test that prints a finding and passes would hide it.
set(MYDB_INSTRUMENTED OFF)

if(MYDB_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        message(FATAL_ERROR "MYDB_FUZZ needs clang: configure with --preset fuzz")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link)
    if(NOT MYDB_SANITIZE)
        set(MYDB_SANITIZE "address,undefined")
    endif()
endif()

if(MYDB_SANITIZE)
    set(MYDB_INSTRUMENTED ON)
    add_compile_options(-fsanitize=${MYDB_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MYDB_SANITIZE})
endif()

if(MYDB_COVERAGE)
    set(MYDB_INSTRUMENTED ON)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
