# Options for what the build does with packages that may be missing.
include_guard(GLOBAL)

# commonui_option(NAME "what it does" found): a cache entry that is ON, OFF or, by default, AUTO, which is ON where the
# package was found. The cache keeps the wish and not the answer: that is a variable of the same name, found anew by each
# configuration, so that a package may be installed between two of them.
macro(commonui_option name what found)
    set(${name} AUTO CACHE STRING "${what}: ON, OFF, or AUTO for ON where the package is found")
    set_property(CACHE ${name} PROPERTY STRINGS AUTO ON OFF)
    if(NOT "${found}" AND ${name} AND NOT ${name} STREQUAL "AUTO")
        message(FATAL_ERROR "${name} is ON, but what it needs is not found")
    endif()
    if("${found}" AND ${name})
        set(${name} ON)
    else()
        set(${name} OFF)
    endif()
endmacro()
