# The contents of an installation besides the programs, and the packages made from it: a Debian
# package of the programs, one of the library for other programs, and a tarball of the sources.
if(QUANDREL_FUZZ OR NOT QUANDREL_QT)
    return()
endif()
include(GNUInstallDirs)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/quandrel)

# The program looks for its help under this name.
install(DIRECTORY docs/help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quandrel/Quandrel_Help)
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quandrel/examples)
install(FILES docs/file_formats.md ${packaging}/copyright DESTINATION ${documents})

# Files by which a desktop finds the program and its file types.
install(FILES ${packaging}/quandrel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/quandrel.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME org.quandrel.quandrel.metainfo.xml)
install(FILES ${packaging}/quandrel.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME quandrel.xml)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${packaging}/icons/quandrel.svg DESTINATION ${icons}/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${packaging}/icons/quandrel-${size}.png DESTINATION ${icons}/${size}x${size}/apps
            RENAME quandrel.png)
endforeach()

# Manual pages and change logs are installed compressed, always to the same bytes.
find_program(QUANDREL_GZIP gzip)
function(quandrel_install_packed source folder name)
    cmake_parse_arguments(arg "" "COMPONENT" "" ${ARGN})
    if(NOT arg_COMPONENT)
        set(arg_COMPONENT program)
    endif()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    if(QUANDREL_GZIP)
        set(packed ${PROJECT_BINARY_DIR}/packed/${name}.gz)
        file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packed)
        execute_process(COMMAND ${QUANDREL_GZIP} -9nc ${source} OUTPUT_FILE ${packed}
                        COMMAND_ERROR_IS_FATAL ANY)
        install(FILES ${packed} DESTINATION ${folder} COMPONENT ${arg_COMPONENT})
    else()
        install(FILES ${source} DESTINATION ${folder} RENAME ${name} COMPONENT ${arg_COMPONENT})
    endif()
endfunction()
foreach(page quandrel.1 quandrel-batch.1)
    quandrel_install_packed(${packaging}/man/${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
endforeach()
quandrel_install_packed(${packaging}/changelog ${documents} changelog)
quandrel_install_packed(${PROJECT_SOURCE_DIR}/NEWS.md ${documents} NEWS.md)

# The library's package has its own documents.
set(libraryDocuments ${CMAKE_INSTALL_DATADIR}/doc/libquandrel-dev)
install(FILES docs/interface.md ${packaging}/copyright DESTINATION ${libraryDocuments}
        COMPONENT dev)
quandrel_install_packed(${packaging}/changelog ${libraryDocuments} changelog COMPONENT dev)

# So has that of the package for Python.
set(components program dev)
if(TARGET quandrel_python)
    list(APPEND components python)
    set(pythonDocuments ${CMAKE_INSTALL_DATADIR}/doc/python3-quandrel)
    install(FILES docs/python.md ${packaging}/copyright DESTINATION ${pythonDocuments}
            COMPONENT python)
    install(DIRECTORY docs/notebooks DESTINATION ${pythonDocuments} COMPONENT python)
    quandrel_install_packed(${packaging}/changelog ${pythonDocuments} changelog COMPONENT python)
endif()

set(CPACK_PACKAGE_NAME quandrel)
set(CPACK_PACKAGE_VENDOR "The Quandrel developers")
set(CPACK_PACKAGE_CONTACT "The Quandrel developers <quandrel@example.org>")
# The first line of each is the summary of its package.
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
"stereonets and rose diagrams for structural geologists
Quandrel reads orientation measurements (planes, lines, polar lines,
directions) from text files in almost any layout, draws them as stereonets
and rose diagrams, and works out their statistics: densities and contours,
fabric statistics, circular statistics, P and T axes of faults, rotation and
unfolding. Pages are printed at true scale, pictures written as PNG, SVG, PDF
and TIFF. The program quandrel-batch does all of it from scripts.")
set(CPACK_COMPONENT_DEV_DESCRIPTION
"arithmetic of structural geology for C++ programs
The engine of Quandrel as a static library with headers: orientations and
their notation, the net, densities and contours, fabric and circular
statistics, roses, classes, rotations, P and T axes of faults, intersections.
Functions take values and give values, and keep no state.")
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
"stereonets and rose diagrams for structural geologists, in Python
The engine of Quandrel over numpy arrays: tables in any format, fabric and
circular statistics, densities with contours, confidence regions and tests,
P and T axes of faults, unfolding, figures in notebooks and for journals, and
summaries of any number of rows, also of clusters.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME quandrel)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
# Dependencies on libraries are added automatically; the SVG library includes its plug-in for icons.
# The plug-in for TIFF pictures is loaded by Qt, where it is found.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "hicolor-icon-theme, qt6-image-formats-plugins")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-liberation, qt6-qpa-plugins")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libquandrel-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-quandrel)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
# The module is for one version of the interpreter.
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.11), python3 (<< 3.12), python3-numpy")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS "python3-matplotlib")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask, python3-distributed")

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME quandrel-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES "/build/" "/\\\\.git/" "/\\\\.cache/" "\\\\.user$"
                              "/compile_commands\\\\.json$")
include(CPack)

if(BUILD_TESTING)
    # Each check runs where its tool is available.
    set(checks ${PROJECT_SOURCE_DIR}/tests/packaging)
    function(quandrel_check name tool)
        find_program(QUANDREL_TOOL_${tool} ${tool})
        if(NOT QUANDREL_TOOL_${tool})
            message(STATUS "No ${tool}: ${name} is left out")
            return()
        endif()
        add_test(NAME ${name} COMMAND ${ARGN})
        set_tests_properties(${name} PROPERTIES LABELS package TIMEOUT 300
                                                ENVIRONMENT "LC_ALL=C.UTF-8")
    endfunction()
    quandrel_check(package_desktop_entry desktop-file-validate
        desktop-file-validate --warn-kde ${packaging}/quandrel.desktop)
    quandrel_check(package_metainfo appstreamcli
        appstreamcli validate --no-net ${packaging}/quandrel.metainfo.xml)
    quandrel_check(package_file_kinds update-mime-database
        ${checks}/file_kinds.sh ${PROJECT_SOURCE_DIR})
    quandrel_check(package_manuals man ${checks}/manuals.sh ${packaging}/man)
    if(NOT QUANDREL_SANITIZE AND NOT QUANDREL_COVERAGE)
        quandrel_check(package_installs dpkg-deb
            ${checks}/package_installs.sh ${CMAKE_CPACK_COMMAND} ${PROJECT_BINARY_DIR}
            ${PROJECT_SOURCE_DIR})
    endif()
endif()
