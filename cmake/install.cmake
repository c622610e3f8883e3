# Headers, library, package files. The public headers stand on the container templates and a few
# small value types, so those are installed beside them.
include(CMakePackageConfigHelpers)

set(YLD_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/yld)
file(GLOB public_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/*.h)
file(GLOB container_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/containers/*.h)
install(FILES ${public_headers} DESTINATION ${YLD_HEADER_DIR})
install(FILES ${container_headers} DESTINATION ${YLD_HEADER_DIR}/containers)
# What public headers include from the floors below: value types and the bases of strings and exceptions; and the
# table of remote connections, which clients fill. The install test finds out when one is missing.
set(YLD_SUPPORT_HEADERS
    platform/base/bas_Export.h
    platform/base/mmo_Memory.h
    platform/base/sys_complex.h
    platform/base/sys_Timer.h
    platform/rmt/rmt_RemoteConnectionsRep.h
    platform/store/mrp_MapOfCowsRepository.h
    platform/store/pcl_Uid.h
    platform/text/exc_Exception.h
    platform/text/msg_StringBase.h
    platform/text/prg_WipReporter.h)
foreach(header IN LISTS YLD_SUPPORT_HEADERS)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${CMAKE_SOURCE_DIR}/${header} DESTINATION ${YLD_HEADER_DIR}/${folder})
endforeach()

install(TARGETS yld EXPORT yldTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT yldTargets NAMESPACE yld:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/yld)
configure_package_config_file(cmake/yldConfig.cmake.in ${CMAKE_BINARY_DIR}/yldConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/yld)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/yldConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/yldConfig.cmake ${CMAKE_BINARY_DIR}/yldConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/yld)
# Found from where the file lies, so that an installed tree can be moved.
file(RELATIVE_PATH YLD_PC_UP /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/yld.pc.in ${CMAKE_BINARY_DIR}/yld.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/yld.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
