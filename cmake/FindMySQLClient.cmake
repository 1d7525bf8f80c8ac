# Finds the MySQL C client library (MariaDB Connector/C or libmysqlclient) and offers
#   MySQL::Client         headers and library
#   MySQL::ClientHeaders  the headers alone
# pkg-config is asked when it is there, and never needed.
if(TARGET MySQL::Client)
    set(MySQLClient_FOUND TRUE)
    return()
endif()

if(NOT CMAKE_CROSSCOMPILING)
    find_package(PkgConfig QUIET)
endif()
if(PkgConfig_FOUND)
    foreach(MODULE libmariadb mariadb mysqlclient)
        if(NOT PC_MYSQLCLIENT_FOUND)
            pkg_check_modules(PC_MYSQLCLIENT QUIET ${MODULE})
        endif()
    endforeach()
endif()

find_path(MYSQLCLIENT_INCLUDE_DIR mysql.h HINTS ${PC_MYSQLCLIENT_INCLUDE_DIRS} PATH_SUFFIXES mariadb mysql)
# On Windows the archive comes first: a DLL with the client in it needs no second one beside it.
set(MYSQLCLIENT_NAMES mariadb mysqlclient libmariadb)
if(WIN32)
    list(PREPEND MYSQLCLIENT_NAMES mariadbclient)
endif()
find_library(MYSQLCLIENT_LIBRARY NAMES ${MYSQLCLIENT_NAMES} HINTS ${PC_MYSQLCLIENT_LIBRARY_DIRS}
             PATH_SUFFIXES mariadb mysql)
mark_as_advanced(MYSQLCLIENT_INCLUDE_DIR MYSQLCLIENT_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(MySQLClient
    REQUIRED_VARS MYSQLCLIENT_LIBRARY MYSQLCLIENT_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "install the C client library with its headers (Debian: libmariadb-dev)")

if(MySQLClient_FOUND)
    add_library(MySQL::ClientHeaders INTERFACE IMPORTED)
    target_include_directories(MySQL::ClientHeaders SYSTEM INTERFACE "${MYSQLCLIENT_INCLUDE_DIR}")
    add_library(MySQL::Client UNKNOWN IMPORTED)
    set_target_properties(MySQL::Client PROPERTIES IMPORTED_LOCATION "${MYSQLCLIENT_LIBRARY}")
    target_link_libraries(MySQL::Client INTERFACE MySQL::ClientHeaders)
    if(WIN32)
        target_link_libraries(MySQL::Client INTERFACE ws2_32 shlwapi crypt32 secur32 bcrypt)
    endif()
endif()
