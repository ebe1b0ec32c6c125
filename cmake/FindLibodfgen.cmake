# Finds libodfgen with the librevenge it stands on: the target Libodfgen::Libodfgen. They come with files for pkg-config
# alone.
find_path(Libodfgen_INCLUDE_DIR libodfgen/libodfgen.hxx PATH_SUFFIXES libodfgen-0.1)
find_path(Librevenge_INCLUDE_DIR librevenge/librevenge.h PATH_SUFFIXES librevenge-0.0)
find_library(Libodfgen_LIBRARY odfgen-0.1)
find_library(Librevenge_LIBRARY revenge-0.0)
mark_as_advanced(Libodfgen_INCLUDE_DIR Librevenge_INCLUDE_DIR Libodfgen_LIBRARY Librevenge_LIBRARY)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libodfgen
    REQUIRED_VARS Libodfgen_LIBRARY Librevenge_LIBRARY Libodfgen_INCLUDE_DIR Librevenge_INCLUDE_DIR)
if(Libodfgen_FOUND AND NOT TARGET Libodfgen::Libodfgen)
    add_library(Libodfgen::Libodfgen UNKNOWN IMPORTED)
    set_target_properties(Libodfgen::Libodfgen PROPERTIES
        IMPORTED_LOCATION ${Libodfgen_LIBRARY}
        INTERFACE_LINK_LIBRARIES ${Librevenge_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES "${Libodfgen_INCLUDE_DIR};${Librevenge_INCLUDE_DIR}")
endif()
