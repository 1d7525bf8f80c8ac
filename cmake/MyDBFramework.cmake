# MyDB::Framework: the host framework as a DLL. Visual C++ brings it along; with other compilers a double stands in, which
# serves the tests of the code that uses it and nothing else.
add_library(mydb_framework INTERFACE)
add_library(MyDB::Framework ALIAS mydb_framework)
set_target_properties(mydb_framework PROPERTIES EXPORT_NAME Framework)
target_compile_definitions(mydb_framework INTERFACE MYDB_WITH_MFC _AFXDLL)

# Each character set has a DLL of the framework of its own, so library and hosts have to agree: the target tells hosts.
option(MYDB_MFC_UNICODE "Use the MFC framework in Unicode, not in the multi-byte character set" OFF)
if(MYDB_MFC_UNICODE)
    target_compile_definitions(mydb_framework INTERFACE UNICODE _UNICODE)
endif()

if(MSVC)
    set(CMAKE_MFC_FLAG 2)
else()
    add_subdirectory("${PROJECT_SOURCE_DIR}/tests/mfc_double")
    target_link_libraries(mydb_framework INTERFACE $<BUILD_INTERFACE:mfc_double>)
endif()
