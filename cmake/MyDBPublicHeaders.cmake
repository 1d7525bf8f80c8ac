# The headers that a host application may include: everything in inc/, the framework's types with what they are made of,
# and the support headers whose names begin with "Ut". Other support headers serve the library alone and are not
# installed.
file(GLOB MYDB_INTERFACE_HEADERS CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/inc" "${PROJECT_SOURCE_DIR}/inc/*.h")
file(GLOB MYDB_SUPPORT_HEADERS CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/support"
     "${PROJECT_SOURCE_DIR}/support/text/Ut*.h"
     "${PROJECT_SOURCE_DIR}/support/containers/Ut*.h"
     "${PROJECT_SOURCE_DIR}/support/log/Ut*.h"
     "${PROJECT_SOURCE_DIR}/support/files/Ut*.h"
     "${PROJECT_SOURCE_DIR}/support/framework/*.h")
list(REMOVE_ITEM MYDB_SUPPORT_HEADERS framework/GuidText.h framework/LocalTime.h framework/OleDate.h
     framework/OutputFile.h framework/VariantDate.h)
list(APPEND MYDB_SUPPORT_HEADERS platform/Guid.h text/TextHash.h)

set(MYDB_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/mydb")
