# How the libraries, tests and programs of this project are built: one place for language level, warnings,
# visibility and sanitizers.
include_guard(GLOBAL)
include(GNUInstallDirs)

find_program(COMMONUI_CCACHE ccache)
if(COMMONUI_CCACHE AND PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${COMMONUI_CCACHE})
endif()

# The settings of every target of the project. Warnings stay private, so that a consumer's build is not judged by ours.
function(commonui_compile_settings target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        COMPILE_WARNING_AS_ERROR ${PROJECT_IS_TOP_LEVEL})
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8 /permissive-)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
            -Wcast-qual -Wformat=2 -Wimplicit-fallthrough)
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-Wold-style-cast>)
        # One rounding for each operation: results do not depend on whether the machine has a fused multiply-add.
        target_compile_options(${target} PRIVATE -ffp-contract=off)
        # A library calls its own functions directly: nobody may put others in their place, so they can be inlined.
        target_compile_options(${target} PRIVATE -fno-semantic-interposition)
        # Where it optimises, GCC 12 sees texts overlap that are put together with +.
        target_compile_options(${target} PRIVATE $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
    endif()
    # What is given away is hardened: writing behind an array or a stack frame ends the process, and where functions are
    # found cannot be overwritten. scripts/check-hardening looks.
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT COMMONUI_SANITIZE)
        set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
        target_compile_options(${target} PRIVATE
            $<${optimised}:-fstack-protector-strong> $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=3>)
        target_link_options(${target} PRIVATE $<${optimised}:LINKER:-z,relro,-z,now>)
    endif()
    if(COMMONUI_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${COMMONUI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        # The instrumented code makes GCC see uninitialised reads where there are none; the plain builds look for them.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
        target_link_options(${target} PRIVATE -fsanitize=${COMMONUI_SANITIZE})
    endif()
endfunction()

# commonui_add_library(NAME ALIAS alias LAYERS dir...): a library of all sources in the layer folders and their rooms.
# Public headers lie beside the sources, private ones in folders named detail. A forwarding header under CommonUI/ in the
# build tree lets a user of add_subdirectory write the same #include lines as a user of the installed package.
function(commonui_add_library name)
    cmake_parse_arguments(arg "" "ALIAS" "LAYERS" ${ARGN})
    set(sources)
    set(headers)
    foreach(layer IN LISTS arg_LAYERS)
        set(base ${PROJECT_SOURCE_DIR}/${layer})
        file(GLOB found CONFIGURE_DEPENDS ${base}/*.cpp ${base}/*/*.cpp)
        list(APPEND sources ${found})
        file(GLOB found RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${base}/*.h ${base}/*/*.h)
        list(FILTER found EXCLUDE REGEX "/detail/")
        list(APPEND headers ${found})
    endforeach()
    foreach(header IN LISTS headers)
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/include/CommonUI/${header}
            CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
    endforeach()

    # With its headers, so that Qt's compiler for them runs anew when there is another one.
    list(TRANSFORM headers PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE header_files)
    add_library(${name} ${sources} ${header_files})
    add_library(CommonUI::${arg_ALIAS} ALIAS ${name})
    commonui_compile_settings(${name})
    # Before 1.0 each minor version may change the binary interface. $ORIGIN lets the libraries find each other
    # wherever they are installed together.
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${arg_ALIAS}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        POSITION_INDEPENDENT_CODE ON
        INSTALL_RPATH "$<$<PLATFORM_ID:Linux>:$ORIGIN>"
        COMMONUI_HEADERS "${headers}")
    if(WIN32)
        set_target_properties(${name} PROPERTIES PREFIX "")
    endif()
    if(BUILD_SHARED_LIBS AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
        target_link_options(${name} PRIVATE LINKER:--no-undefined)
    endif()
    target_include_directories(${name}
        PUBLIC
            $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${PROJECT_SOURCE_DIR})
    string(TOUPPER ${name} upper)
    target_compile_definitions(${name} PRIVATE ${upper}_BUILD)
    if(NOT BUILD_SHARED_LIBS)
        target_compile_definitions(${name} PUBLIC COMMONUI_STATIC)
    endif()
endfunction()

# commonui_add_program(NAME SOURCES file... LIBRARIES target...): a program or test of this project, which may include
# by the path from the project's root.
function(commonui_add_program name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    commonui_compile_settings(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
endfunction()

# commonui_add_parts(NAME LIBRARIES target...): a static library of all sources of the current folder but main.cpp, so that
# tests reach what a program is made of.
function(commonui_add_parts name)
    cmake_parse_arguments(arg "" "" "LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    commonui_compile_settings(${name})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${arg_LIBRARIES})
endfunction()
