# An independent DES to compare ours with. The MySQL client library's development package brings it.
if(NOT WIN32)
    find_package(OpenSSL REQUIRED COMPONENTS Crypto)
    target_link_libraries(unit_serverini PRIVATE OpenSSL::Crypto)
endif()

# The encipherment of the example program, to try it against the library's decipherment.
target_include_directories(unit_serverini PRIVATE "${PROJECT_SOURCE_DIR}/examples")
