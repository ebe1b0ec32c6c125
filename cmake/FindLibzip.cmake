# Finds libzip: the target Libzip::Libzip. The package file that comes with it wants its command-line tools, which
# distributions put into packages of their own.
find_path(Libzip_INCLUDE_DIR zip.h)
find_library(Libzip_LIBRARY zip)
mark_as_advanced(Libzip_INCLUDE_DIR Libzip_LIBRARY)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libzip REQUIRED_VARS Libzip_LIBRARY Libzip_INCLUDE_DIR)
if(Libzip_FOUND AND NOT TARGET Libzip::Libzip)
    add_library(Libzip::Libzip UNKNOWN IMPORTED)
    set_target_properties(Libzip::Libzip PROPERTIES
        IMPORTED_LOCATION ${Libzip_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${Libzip_INCLUDE_DIR})
    # A static one leaves what it is made with to who links it.
    if(WIN32 AND Libzip_LIBRARY MATCHES "\\.a$")
        find_package(ZLIB REQUIRED)
        set_property(TARGET Libzip::Libzip PROPERTY INTERFACE_LINK_LIBRARIES ZLIB::ZLIB)
    endif()
endif()
