# The engine for other programs: its archive, the headers of include/quandrel, and the files for
# find_package(quandrel). Installed as the component "dev".
if(QUANDREL_FUZZ)
    return()
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)

# Adds the library of a folder, and those that it depends on, to the list named `found`.
function(quandrel_gather library found)
    if(library IN_LIST ${found})
        return()
    endif()
    get_target_property(type ${library} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        list(APPEND ${found} ${library})
    endif()
    get_target_property(used ${library} INTERFACE_LINK_LIBRARIES)
    foreach(other IN LISTS used)
        if(TARGET ${other})
            quandrel_gather(${other} ${found})
        endif()
    endforeach()
    set(${found} ${${found}} PARENT_SCOPE)
endfunction()

set(libraries "")
quandrel_gather(quandrel_engine libraries)
quandrel_gather(quandrel_border libraries)
add_library(quandrel_archive STATIC)
foreach(library IN LISTS libraries)
    target_sources(quandrel_archive PRIVATE $<TARGET_OBJECTS:${library}>)
endforeach()
set_target_properties(quandrel_archive PROPERTIES
    OUTPUT_NAME quandrel EXPORT_NAME quandrel LINKER_LANGUAGE CXX)
target_compile_features(quandrel_archive INTERFACE cxx_std_20)
target_link_libraries(quandrel_archive INTERFACE Threads::Threads ZLIB::ZLIB)

# The version of the interface, from its header.
set(header ${PROJECT_SOURCE_DIR}/include/quandrel/version.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
foreach(part MAJOR MINOR)
    file(STRINGS ${header} line REGEX "define QUANDREL_API_VERSION_${part} ")
    string(REGEX MATCH "[0-9]+$" ${part} "${line}")
endforeach()
# Below 1.0 each minor version may be incompatible.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/quandrelConfigVersion.cmake
    VERSION ${MAJOR}.${MINOR} COMPATIBILITY SameMinorVersion)

set(configuration ${CMAKE_INSTALL_LIBDIR}/cmake/quandrel)
install(TARGETS quandrel_archive EXPORT quandrel COMPONENT dev
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT quandrel NAMESPACE quandrel:: FILE quandrelTargets.cmake
        DESTINATION ${configuration} COMPONENT dev)
install(FILES cmake/quandrelConfig.cmake ${PROJECT_BINARY_DIR}/quandrelConfigVersion.cmake
        DESTINATION ${configuration} COMPONENT dev)
install(DIRECTORY include/quandrel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev
        FILES_MATCHING PATTERN "*.h")
# Archives are not stripped with the programs.
install(CODE "
    if(CMAKE_INSTALL_DO_STRIP)
        execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug
            \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/libquandrel.a\"
            COMMAND_ERROR_IS_FATAL ANY)
    endif()" COMPONENT dev)

if(BUILD_TESTING AND NOT QUANDREL_SANITIZE AND NOT QUANDREL_COVERAGE)
    add_test(NAME library_installs
             COMMAND ${PROJECT_SOURCE_DIR}/tests/packaging/library_installs.sh ${CMAKE_COMMAND}
                     ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR} ${CMAKE_CXX_COMPILER})
    set_tests_properties(library_installs PROPERTIES LABELS package TIMEOUT 300
                                                     ENVIRONMENT "LC_ALL=C.UTF-8")
endif()
