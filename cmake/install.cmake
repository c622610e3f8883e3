# Headers, library, package files. The public headers stand on the container templates and a few
# small value types, so those are installed beside them.
include(CMakePackageConfigHelpers)

set(YLD_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/yld)
file(GLOB public_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/*.h)
file(GLOB container_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/containers/*.h)
install(FILES ${public_headers} DESTINATION ${YLD_HEADER_DIR})
install(FILES ${container_headers} DESTINATION ${YLD_HEADER_DIR}/containers)
foreach(header IN ITEMS ${YLD_SUPPORT_HEADERS})
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
configure_file(cmake/yld.pc.in ${CMAKE_BINARY_DIR}/yld.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/yld.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
