# Install rules and the CMake package, so that find_package(CommonUI) gives CommonUI::Common, CommonUI::CommonUI,
# CommonUI::Analysis, CommonUI::Formats, CommonUI::Measurement and, where they are built, CommonUI::Qt and CommonUI::Win.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)

# commonui_install(EXPORT library...): libraries and headers, whose targets the package file of the name defines.
function(commonui_install export)
    install(TARGETS ${ARGN} EXPORT ${export}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    foreach(library IN LISTS ARGN)
        get_target_property(headers ${library} COMMONUI_HEADERS)
        foreach(header IN LISTS headers)
            cmake_path(GET header PARENT_PATH layer)
            install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI/${layer})
        endforeach()
    endforeach()
    install(EXPORT ${export} NAMESPACE CommonUI:: DESTINATION ${package_dir})
endfunction()

commonui_install(CommonUITargets CommonDLL CommonUIDLL CommonUIAnalysis CommonUIFormats
    CommonUIMeasurement)
if(COMMONUI_WITH_QT)
    commonui_install(CommonUIQtTargets CommonUIQt)
endif()
if(WIN32)
    commonui_install(CommonUIWinTargets CommonUIWin)
endif()
# The pages that help opens, with their pictures.
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
# The programs that they show, each in a folder to begin with, and a surface.
foreach(example IN ITEMS data format_dialog grid_dialog languages measurement number_dialog progress_dialog selection_dialog)
    install(DIRECTORY examples/${example} DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
endforeach()
if(WIN32)
    install(DIRECTORY examples/windows_services DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
endif()
configure_package_config_file(cmake/CommonUIConfig.cmake.in ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake ${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake
    cmake/FindLibodfgen.cmake cmake/FindLibzip.cmake
    DESTINATION ${package_dir})
