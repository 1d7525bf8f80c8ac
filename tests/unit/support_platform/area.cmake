# The user's locale under Wine is that of the prefix: once more in a German one, counted as one test.
if(WIN32)
    add_test(NAME unit_support_platform_de_DE COMMAND unit_support_platform --gtest_filter=*Locale*)
    set_tests_properties(unit_support_platform_de_DE PROPERTIES
                         LABELS "unit;gtest" TIMEOUT 300 ENVIRONMENT "MYDB_WINE_LOCALE=de_DE;GTEST_OUTPUT=")
endif()
