# The program: the core in the windows of the toolkit. Without wxWidgets the core and its tests are
# still built, and what is left out is said.
set(wx_found FALSE)
if(WIN32)
    find_package(wxWidgets CONFIG QUIET COMPONENTS core base)
    if(TARGET wx::core)
        set(wx_found TRUE)
        add_library(sysman_toolkit INTERFACE)
        target_link_libraries(sysman_toolkit INTERFACE wx::core wx::base)
    endif()
else()
    find_package(wxWidgets 3.2 QUIET COMPONENTS core base)
    # What the toolkit does not tell of a key or to a screen reader, its platform does.
    find_package(PkgConfig QUIET)
    if(PkgConfig_FOUND)
        pkg_check_modules(gtk QUIET IMPORTED_TARGET gtk+-3.0)
    endif()
    # Whether there is a printer is asked of the print server itself.
    find_package(Cups QUIET)
    if(wxWidgets_FOUND AND TARGET PkgConfig::gtk AND CUPS_FOUND)
        set(wx_found TRUE)
        add_library(sysman_toolkit INTERFACE)
        target_include_directories(sysman_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
        target_compile_definitions(sysman_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
        target_compile_options(sysman_toolkit INTERFACE ${wxWidgets_CXX_FLAGS})
        target_link_libraries(sysman_toolkit INTERFACE ${wxWidgets_LIBRARIES})
        # Apart from the flags: the pedantic warnings are not for its headers.
        target_include_directories(sysman_toolkit SYSTEM INTERFACE
            $<TARGET_PROPERTY:PkgConfig::gtk,INTERFACE_INCLUDE_DIRECTORIES>)
        target_link_libraries(sysman_toolkit INTERFACE PkgConfig::gtk Cups::Cups)
    endif()
endif()
if(NOT wx_found)
    message(STATUS "wxWidgets 3.2 (on Linux with GTK 3 and CUPS) was not found: the program and the "
                   "window tests are left out")
    return()
endif()

file(GLOB wx_sources CONFIGURE_DEPENDS src/views/wx/*.cpp)
if(WIN32)
    list(FILTER wx_sources EXCLUDE REGEX "print_server|_gtk\\.cpp")
else()
    list(FILTER wx_sources EXCLUDE REGEX "_windows\\.cpp")
endif()
add_library(sysman_wx STATIC ${wx_sources})
target_link_libraries(sysman_wx PUBLIC sysman_core sysman_toolkit)
target_include_directories(sysman_wx PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})

add_executable(sysman src/main.cpp)
target_link_libraries(sysman PRIVATE sysman_wx)
if(WIN32)
    set_target_properties(sysman PROPERTIES WIN32_EXECUTABLE ON)
    target_sources(sysman PRIVATE packaging/sysman.rc)
    # The resource compiler does not tell what it reads.
    set_source_files_properties(packaging/sysman.rc PROPERTIES OBJECT_DEPENDS
                                ${CMAKE_BINARY_DIR}/generated/app/version.h)
    target_link_options(sysman PRIVATE $<$<CONFIG:Release>:-s>)  # it is copied to workshop PCs
endif()
set_target_properties(sysman PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
# A backup is done by the program beside it.
if(TARGET quarvel-data)
    add_dependencies(sysman quarvel-data)
endif()
