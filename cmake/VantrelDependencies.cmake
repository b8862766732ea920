# The libraries that the program is made with. What a folder links:
#
#   vantrel_wx          wxWidgets; linked by vantrel_windows_part, never by an engine
#   pugixml::pugixml    XML
#   SQLite::SQLite3     database
#   ZLIB::ZLIB          deflated data
#   PkgConfig::LibMd    MD5, where the system has no service of its own for it
#
# Imported targets, so that their headers are system headers to the compiler.

find_package(wxWidgets 3.2 REQUIRED COMPONENTS aui core base)
add_library(vantrel_wx INTERFACE IMPORTED)
target_include_directories(vantrel_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(vantrel_wx INTERFACE ${wxWidgets_DEFINITIONS})
target_compile_options(vantrel_wx INTERFACE ${wxWidgets_CXX_FLAGS})
target_link_directories(vantrel_wx INTERFACE ${wxWidgets_LIBRARY_DIRS})
target_link_libraries(vantrel_wx INTERFACE ${wxWidgets_LIBRARIES})

# Whoever links windows, even through others, gets the property ON; an engine has it OFF.
# Both at once is an error when the build is made.
set_property(TARGET vantrel_wx PROPERTY INTERFACE_VANTREL_WINDOWS ON)
set_property(TARGET vantrel_wx APPEND PROPERTY COMPATIBLE_INTERFACE_BOOL VANTREL_WINDOWS)

find_package(pugixml REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(ZLIB REQUIRED)

if(VANTREL_PLATFORM STREQUAL "Posix")
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(LibMd REQUIRED IMPORTED_TARGET libmd)
endif()

if(VANTREL_BUILD_TESTS)
    find_package(GTest REQUIRED)
    include(GoogleTest)
endif()

if(VANTREL_BUILD_BENCHMARKS)
    find_package(benchmark REQUIRED)
endif()

if(VANTREL_BUILD_FUZZERS AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "Fuzz targets need clang; use the preset `fuzz`.")
endif()
