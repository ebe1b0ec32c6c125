# Install rules and the CMake package, so that find_package(CommonUI) gives CommonUI::Common, CommonUI::CommonUI,
# CommonUI::Analysis, CommonUI::Formats, CommonUI::Measurement and, where they are built, CommonUI::Qt and CommonUI::Win.
# Each file belongs to the component of the package it goes to: Runtime, Dev, Tools, Workbench, Python or Doc; what needs Qt is in
# RuntimeQt and DevQt.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/CommonUI)

# commonui_install(EXPORT QT library...): libraries and headers, whose targets the package file of the name defines. QT is
# what the names of their components end in.
function(commonui_install export qt)
    install(TARGETS ${ARGN} EXPORT ${export}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime${qt}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime${qt} NAMELINK_COMPONENT Dev${qt}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Dev${qt})
    foreach(library IN LISTS ARGN)
        get_target_property(headers ${library} COMMONUI_HEADERS)
        foreach(header IN LISTS headers)
            cmake_path(GET header PARENT_PATH layer)
            install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CommonUI/${layer} COMPONENT Dev${qt})
        endforeach()
    endforeach()
    install(EXPORT ${export} NAMESPACE CommonUI:: DESTINATION ${package_dir} COMPONENT Dev${qt})
endfunction()

# commonui_pkg_config(NAME library COMPONENT component DESCRIPTION text [REQUIRES package...] [STATIC package...]): what
# pkg-config knows a library by. STATIC are those that a static library leaves to its users to link.
function(commonui_pkg_config name library)
    cmake_parse_arguments(arg "" "COMPONENT;DESCRIPTION" "REQUIRES;STATIC" ${ARGN})
    set(flags)
    if(NOT BUILD_SHARED_LIBS)
        list(APPEND arg_REQUIRES ${arg_STATIC})
        set(flags " -DCOMMONUI_STATIC")
    endif()
    list(JOIN arg_REQUIRES ", " requires)
    set(folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    # Relative, so that what is installed may be moved.
    file(RELATIVE_PATH prefix /prefix/${folder} /prefix)
    string(REGEX REPLACE "/$" "" prefix "${prefix}")
    configure_file(cmake/CommonUI.pc.in ${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc DESTINATION ${folder} COMPONENT ${arg_COMPONENT})
endfunction()

# commonui_install_program(target component): a program, and its page of the manual where packages are made.
function(commonui_install_program target component)
    set_target_properties(${target} PROPERTIES
        INSTALL_RPATH "$<$<PLATFORM_ID:Linux>:$ORIGIN/../${CMAKE_INSTALL_LIBDIR}>")
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
    if(COMMONUI_PACKAGES)
        set(page ${CMAKE_CURRENT_BINARY_DIR}/$<TARGET_FILE_BASE_NAME:${target}>.1.gz)
        add_custom_command(TARGET ${target} POST_BUILD VERBATIM
            COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${PROJECT_BINARY_DIR}
                ${PROJECT_SOURCE_DIR}/scripts/lib/man-page $<TARGET_FILE:${target}> ${PROJECT_VERSION} ${page})
        install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
    endif()
endfunction()

commonui_install(CommonUITargets "" CommonDLL CommonUIDLL CommonUIAnalysis CommonUIFormats
    CommonUIMeasurement)
set(x3p_packages)
set(dll_packages)
set(report_packages)
if(COMMONUI_WITH_X3P)
    set(x3p_packages libzip libcrypto pugixml)
endif()
if(COMMONUI_WITH_PUGIXML)
    list(APPEND dll_packages pugixml)
endif()
if(COMMONUI_WITH_OPENGL AND NOT CMAKE_SYSTEM_NAME STREQUAL "Linux") # where they are loaded on demand
    list(APPEND dll_packages glu gl)
endif()
if(COMMONUI_WITH_PNG)
    list(APPEND report_packages libpng)
endif()
if(COMMONUI_WITH_ODT)
    list(APPEND report_packages libodfgen-0.1 librevenge-0.0 libzip)
endif()
commonui_pkg_config(commonui-common CommonDLL COMPONENT Dev
    DESCRIPTION "Texts, numbers, units and INI files of applications for surface metrology")
commonui_pkg_config(commonui CommonUIDLL COMPONENT Dev REQUIRES commonui-common STATIC ${dll_packages}
    DESCRIPTION "Models, settings, results and the logic of dialogs of applications for surface metrology")
commonui_pkg_config(commonui-analysis CommonUIAnalysis COMPONENT Dev
    DESCRIPTION "Parameters of surfaces, profiles and grains")
commonui_pkg_config(commonui-formats CommonUIFormats COMPONENT Dev REQUIRES commonui-analysis STATIC ${x3p_packages}
    DESCRIPTION "Files of surfaces and profiles")
commonui_pkg_config(commonui-measurement CommonUIMeasurement COMPONENT Dev REQUIRES commonui commonui-analysis
    STATIC ${report_packages} DESCRIPTION "Tables of results of what the user has chosen to compute")
if(COMMONUI_WITH_QT)
    commonui_install(CommonUIQtTargets Qt CommonUIQt)
    commonui_pkg_config(commonui-qt CommonUIQt COMPONENT DevQt REQUIRES commonui Qt6Widgets
        STATIC Qt6PrintSupport Qt6Network DESCRIPTION "Widgets for applications of surface metrology, on Qt 6")
endif()
if(WIN32)
    commonui_install(CommonUIWinTargets "" CommonUIWin)
endif()
# The pages that help opens, with their pictures.
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Doc)
# The programs that they show, each in a folder to begin with, and a surface.
foreach(example IN ITEMS data format_dialog gl_state grid_dialog ini_store languages measurement number_dialog progress_dialog
    python roughness_report selection_dialog settings_sets surface_files)
    install(DIRECTORY examples/${example} DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT Doc)
endforeach()
if(WIN32)
    install(DIRECTORY examples/windows_dialog examples/windows_services DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT Doc)
endif()
configure_package_config_file(cmake/CommonUIConfig.cmake.in ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CommonUIConfig.cmake ${PROJECT_BINARY_DIR}/CommonUIConfigVersion.cmake
    cmake/FindLibodfgen.cmake cmake/FindLibzip.cmake
    DESTINATION ${package_dir} COMPONENT Dev)
if(COMMONUI_PACKAGES)
    include(CommonUIPackages)
endif()
