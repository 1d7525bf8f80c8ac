# mydb_leave_out_other_system(<list>): takes the sources out of the list that stand in a folder posix/ or win32/ and
# belong to the system that is not being built for; in mfc/ or own/, whichever framework types are not in use; and in win32/
# those that mfc/ has, too. Where the repository itself stands does not matter.
function(mydb_leave_out_other_system LIST)
    set(OTHERS win32 mfc)
    if(WIN32)
        set(OTHERS posix mfc)
    endif()
    if(MYDB_WITH_MFC)
        set(OTHERS posix own)
    endif()
    list(JOIN OTHERS "|" OTHERS)
    set(KEPT)
    foreach(SOURCE IN LISTS ${LIST})
        cmake_path(RELATIVE_PATH SOURCE BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE PLACE)
        string(REPLACE "/win32/" "/mfc/" REPLACEMENT "${SOURCE}")
        if(PLACE MATCHES "/(${OTHERS})/" OR
           (MYDB_WITH_MFC AND NOT REPLACEMENT STREQUAL SOURCE AND REPLACEMENT IN_LIST ${LIST}))
            continue()
        endif()
        list(APPEND KEPT "${SOURCE}")
    endforeach()
    set(${LIST} "${KEPT}" PARENT_SCOPE)
endfunction()
