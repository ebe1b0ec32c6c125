# Debian's packages, which cpack makes: libraries, what to develop with them, programs, documentation. The libraries come
# in two packages, so that who has no display needs no Qt. scripts/package makes and tries them.
find_program(COMMONUI_GZIP gzip REQUIRED)

set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(revision 1)
set(full_version ${PROJECT_VERSION}-${revision})

# commonui_package(COMPONENT name SECTION section SUMMARY line DEPENDS text [RECOMMENDS text] [ARCHITECTURE name]
# TEXT text): what of the install rules goes into a package, and how it is told to people.
function(commonui_package component name)
    cmake_parse_arguments(arg "" "SECTION;SUMMARY;DEPENDS;RECOMMENDS;ARCHITECTURE;TEXT" "" ${ARGN})
    string(TOUPPER ${component} upper)
    set(prefix CPACK_DEBIAN_${upper}_PACKAGE)
    set(${prefix}_NAME ${name} PARENT_SCOPE)
    set(${prefix}_SECTION ${arg_SECTION} PARENT_SCOPE)
    set(${prefix}_DEPENDS "${arg_DEPENDS}" PARENT_SCOPE)
    set(${prefix}_RECOMMENDS "${arg_RECOMMENDS}" PARENT_SCOPE)
    if(arg_ARCHITECTURE)
        set(${prefix}_ARCHITECTURE ${arg_ARCHITECTURE} PARENT_SCOPE)
    endif()
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${arg_SUMMARY}\n${arg_TEXT}" PARENT_SCOPE)
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.gz
        ${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz
        DESTINATION share/doc/${name} COMPONENT ${component})
    list(APPEND components ${component})
    set(components ${components} PARENT_SCOPE)
endfunction()

# The same bytes whenever they are made: without a name and a time in the compressed file, of the time that
# SOURCE_DATE_EPOCH says.
function(commonui_compress from to)
    execute_process(COMMAND ${COMMONUI_GZIP} -9nc ${from} OUTPUT_FILE ${to} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
set(ENV{LC_ALL} C.UTF-8)
string(TIMESTAMP debian_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(maintainer "CommonUI maintainers <maintainers@commonui.example.org>")
configure_file(packaging/changelog.in packaging/changelog.Debian @ONLY)
commonui_compress(${PROJECT_BINARY_DIR}/packaging/changelog.Debian ${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz)
commonui_compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/packaging/changelog.gz)

# commonui_library_files(component package library...): what Debian wants to know of shared libraries: in which package a
# program finds each, and that the loader's cache changes.
function(commonui_library_files component package)
    set(folder ${PROJECT_BINARY_DIR}/packaging/${component})
    set(lines ${ARGN})
    list(TRANSFORM lines REPLACE ".+" "lib\\0 ${soversion} ${package} (= ${full_version})")
    list(JOIN lines "\n" lines)
    file(WRITE ${folder}/shlibs "${lines}\n")
    file(WRITE ${folder}/triggers "activate-noawait ldconfig\n")
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA ${folder}/shlibs ${folder}/triggers PARENT_SCOPE)
endfunction()

set(components)
set(about "CommonUI gives applications that analyse surface images and profiles from
microscopes and profilers their models, settings, results and dialogs.")
commonui_package(Runtime libcommonui${soversion} SECTION libs RECOMMENDS "libopengl0, libglu1-mesa"
    SUMMARY "models, settings and results for surface metrology"
    TEXT "${about}
.
This package holds the libraries without a user interface: texts, units and
settings, parameters of surfaces, profiles and grains, files of surfaces,
tables of results and reports, and the logic of controls and dialogs.")
commonui_library_files(Runtime libcommonui${soversion}
    CommonDLL CommonUIDLL CommonUIAnalysis CommonUIFormats CommonUIMeasurement)
commonui_package(Dev libcommonui-dev SECTION libdevel DEPENDS "libcommonui${soversion} (= ${full_version})"
    SUMMARY "models, settings and results for surface metrology (development)"
    TEXT "${about}
.
This package holds the headers, the CMake package and the files of pkg-config
for the libraries without a user interface.")
commonui_package(Tools commonui-tools SECTION science
    DEPENDS "libcommonui${soversion} (= ${full_version}), fonts-dejavu-core, libglu1-mesa"
    RECOMMENDS "libgl1-mesa-dri"
    SUMMARY "reports and pictures of measured surfaces"
    TEXT "surface_report reads surfaces and profiles (SDF, X3P, text) and writes tables
of their areal parameters, of the parameters of every profile or of their
grains. surface_view draws a surface in three dimensions, without a display.
gl_report prints what support asks for about OpenGL.")
commonui_package(Doc commonui-doc SECTION doc ARCHITECTURE all
    SUMMARY "models, settings and results for surface metrology (documentation)"
    TEXT "${about}
.
This package holds the manual, which the workbench opens as its help, and
examples, each a project of its own, with a surface to try them with.")
if(COMMONUI_WITH_QT)
    commonui_package(RuntimeQt libcommonui-qt${soversion} SECTION libs
        DEPENDS "libcommonui${soversion} (= ${full_version})"
        SUMMARY "widgets for surface metrology, on Qt 6"
        TEXT "${about}
.
This package holds the widgets of controls, grids and dialogs on Qt 6.")
    commonui_library_files(RuntimeQt libcommonui-qt${soversion} CommonUIQt)
    commonui_package(DevQt libcommonui-qt-dev SECTION libdevel
        DEPENDS "libcommonui-dev (= ${full_version}), libcommonui-qt${soversion} (= ${full_version}), qt6-base-dev"
        SUMMARY "widgets for surface metrology, on Qt 6 (development)"
        TEXT "${about}
.
This package holds the headers, the CMake component and the file of pkg-config
for the widgets on Qt 6.")
    commonui_package(Workbench commonui-workbench SECTION science
        DEPENDS "libcommonui-qt${soversion} (= ${full_version}), libglu1-mesa"
        RECOMMENDS "commonui-doc, libqt6svg6, qt6-translations-l10n"
        SUMMARY "desktop program for measured surfaces"
        TEXT "The workbench shows surfaces of microscopes and profilers as maps and in
three dimensions, corrects and filters them step by step, measures profiles,
curves and grains, and computes their parameters.")
endif()

if(COMMONUI_WITH_PYTHON)
    # A module that is compiled is for one version of Python.
    math(EXPR next "${Python3_VERSION_MINOR} + 1")
    commonui_package(Python python3-commonui SECTION python
        DEPENDS "libcommonui${soversion} (= ${full_version}), python3 (>= 3.${Python3_VERSION_MINOR}), python3 (<< 3.${next}), python3-numpy"
        RECOMMENDS "python3-pandas"
        SUMMARY "roughness and grains of measured surfaces (Python 3)"
        TEXT "${about}
.
This package holds the module for Python: surfaces as arrays of numpy, plane
corrections and filters, parameters of surfaces, profiles and grains, and
tables of results.")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
        ${PROJECT_SOURCE_DIR}/packaging/python/postinst ${PROJECT_SOURCE_DIR}/packaging/python/prerm)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME commonui)
set(CPACK_PACKAGE_VENDOR CommonUI)
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE commonui)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${revision})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
include(CPack)
