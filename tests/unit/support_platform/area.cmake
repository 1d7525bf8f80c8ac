# The user's locale under Wine is that of the prefix: what depends on it runs once more, in a German one. A program of its
# own: GoogleTest names the file of its results after the program.
if(WIN32)
    add_executable(unit_support_platform_de_DE "${FOLDER}/LocaleDateTest.cpp" "${FOLDER}/win32/LocaleDateTest.cpp")
    mydb_test_support(unit_support_platform_de_DE)
    target_link_libraries(unit_support_platform_de_DE
                          PRIVATE mydb_static MySQL::ClientHeaders harness fake_client GTest::gtest_main)
    add_test(NAME unit_support_platform_de_DE COMMAND unit_support_platform_de_DE)
    set_tests_properties(unit_support_platform_de_DE PROPERTIES
                         LABELS "unit;gtest" TIMEOUT 300 ENVIRONMENT MYDB_WINE_LOCALE=de_DE)
endif()
