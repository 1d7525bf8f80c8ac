include(CMakePackageConfigHelpers)

set(MYDB_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/MyDB")

if(MYDB_WITH_MFC)
    install(TARGETS mydb_framework EXPORT MyDBTargets)
endif()
install(TARGETS mydb EXPORT MyDBTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(EXPORT MyDBTargets NAMESPACE MyDB:: DESTINATION "${MYDB_INSTALL_CMAKEDIR}")

foreach(HEADER ${MYDB_INTERFACE_HEADERS})
    install(FILES "inc/${HEADER}" DESTINATION "${MYDB_INSTALL_INCLUDEDIR}")
endforeach()
foreach(HEADER ${MYDB_SUPPORT_HEADERS})
    get_filename_component(FOLDER "${HEADER}" DIRECTORY)
    install(FILES "support/${HEADER}" DESTINATION "${MYDB_INSTALL_INCLUDEDIR}/${FOLDER}")
endforeach()

configure_package_config_file(cmake/MyDBConfig.cmake.in "${PROJECT_BINARY_DIR}/MyDBConfig.cmake"
                              INSTALL_DESTINATION "${MYDB_INSTALL_CMAKEDIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/MyDBConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/MyDBConfig.cmake" "${PROJECT_BINARY_DIR}/MyDBConfigVersion.cmake"
              cmake/FindMySQLClient.cmake
        DESTINATION "${MYDB_INSTALL_CMAKEDIR}")

# The paths in mydb.pc are relative to the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH MYDB_PC_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/mydb.pc.in "${PROJECT_BINARY_DIR}/mydb.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/mydb.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
