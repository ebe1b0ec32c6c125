# Install rules and the CMake package, so that find_package(CommonUI) gives CommonUI::Common and CommonUI::CommonUI.
include(CMakePackageConfigHelpers)

install(TARGETS CommonDLL CommonUIDLL EXPORT CommonUITargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(library CommonDLL CommonUIDLL)
    get_target_property(headers ${library} COMMONUI_HEADERS)
    foreach(header IN LISTS headers)
        cmake_path(GET header PARENT_PATH layer)
        install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI/${layer})
    endforeach()
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)
install(EXPORT CommonUITargets NAMESPACE CommonUI:: DESTINATION ${package_dir})
configure_package_config_file(cmake/CommonUIConfig.cmake.in ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake ${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake
    DESTINATION ${package_dir})
