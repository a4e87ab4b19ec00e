# Install layout of the module under the prefix:
#   bin/                                  programs
#   lib/libcoagulation*.so*               the libraries (the report library is also the plug-in)
#   lib/coagulation/plugins/              the folder a host scans for plug-ins: a link to the report library
#   include/coagulation/{core,kvcore,labdata}/, include/coagulation/report/   public headers
#   lib/cmake/CoagulationReport/          the CMake package (find_package(CoagulationReport))
#   share/coagulation/templates/          default report templates
# The build tree mirrors bin/, lib/ and the plug-in folder, so programs find the plug-in the same way
# there and after installing.
include_guard(GLOBAL)
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(COAGULATION_PLUGIN_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/coagulation/plugins)
set(COAGULATION_TEMPLATE_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/coagulation/templates)
set(COAGULATION_PACKAGE_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/CoagulationReport)
set(COAGULATION_EXPORT CoagulationReportTargets)

# Where a program finds the plug-in folder, relative to its own folder.
file(RELATIVE_PATH COAGULATION_PLUGIN_DIR_FROM_BIN
     /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${COAGULATION_PLUGIN_INSTALL_DIR})
file(RELATIVE_PATH _coagulation_lib_from_bin /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH _coagulation_lib_from_plugins
     /prefix/${COAGULATION_PLUGIN_INSTALL_DIR} /prefix/${CMAKE_INSTALL_LIBDIR})

# A shared library of the module: versioned, exported as Coagulation::<exportName>, its public
# headers (every header among its sources but the private *_p.h ones) installed in
# include/coagulation/<headerDir>. <includeRoot> is what consumers add to their include path, relative
# to include/coagulation: "." for the host libraries (included as <core/profile.h>), the header folder
# itself for the report library (included as <report.h>).
function(coagulation_install_library target exportName headerDir includeRoot)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${exportName}
        INSTALL_RPATH "$ORIGIN")
    cmake_path(APPEND CMAKE_INSTALL_INCLUDEDIR coagulation ${includeRoot} OUTPUT_VARIABLE includeDir)
    cmake_path(NORMAL_PATH includeDir)
    string(REGEX REPLACE "/$" "" includeDir ${includeDir})
    target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${includeDir}>)

    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.h$")
    list(FILTER sources EXCLUDE REGEX "_p\\.h$")
    install(TARGETS ${target} EXPORT ${COAGULATION_EXPORT}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
    install(FILES ${sources} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/coagulation/${headerDir}
        COMPONENT development)
endfunction()

# The plug-in folder holds a relative link to the library, so that the host's plug-in loader and a
# program linking the library share one loaded copy (the loader resolves the link).
function(coagulation_install_plugin target)
    get_target_property(name ${target} OUTPUT_NAME)
    set(linkName ${CMAKE_SHARED_LIBRARY_PREFIX}${name}${CMAKE_SHARED_LIBRARY_SUFFIX})
    set(linkTarget ${_coagulation_lib_from_plugins}/${linkName}.${PROJECT_VERSION_MAJOR})
    cmake_path(NORMAL_PATH linkTarget)
    set(buildFolder ${CMAKE_BINARY_DIR}/${COAGULATION_PLUGIN_INSTALL_DIR})
    file(MAKE_DIRECTORY ${buildFolder})
    file(CREATE_LINK ${linkTarget} ${buildFolder}/${linkName} SYMBOLIC)
    # install(FILES) copies a link as a link.
    install(FILES ${buildFolder}/${linkName} DESTINATION ${COAGULATION_PLUGIN_INSTALL_DIR} COMPONENT runtime)
endfunction()

# A program: finds the libraries beside the prefix's bin/ folder from wherever the prefix is.
function(coagulation_install_program target)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${_coagulation_lib_from_bin}")
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endfunction()

# The CMake package: targets, version file and a config that finds Qt and names the plug-in folder.
function(coagulation_install_package)
    install(EXPORT ${COAGULATION_EXPORT} NAMESPACE Coagulation::
        DESTINATION ${COAGULATION_PACKAGE_INSTALL_DIR} COMPONENT development)
    set(PLUGIN_DIR ${COAGULATION_PLUGIN_INSTALL_DIR})
    set(TEMPLATE_DIR ${COAGULATION_TEMPLATE_INSTALL_DIR})
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/CoagulationReportConfig.cmake.in
        ${CMAKE_BINARY_DIR}/cmake/CoagulationReportConfig.cmake
        INSTALL_DESTINATION ${COAGULATION_PACKAGE_INSTALL_DIR}
        PATH_VARS PLUGIN_DIR TEMPLATE_DIR)
    write_basic_package_version_file(${CMAKE_BINARY_DIR}/cmake/CoagulationReportConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${CMAKE_BINARY_DIR}/cmake/CoagulationReportConfig.cmake
        ${CMAKE_BINARY_DIR}/cmake/CoagulationReportConfigVersion.cmake
        DESTINATION ${COAGULATION_PACKAGE_INSTALL_DIR} COMPONENT development)
endfunction()

# Every program defined in <folder> and its sub-folders.
function(coagulation_install_programs folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "EXECUTABLE")
            coagulation_install_program(${target})
        endif()
    endforeach()
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS subfolders)
        coagulation_install_programs(${subfolder})
    endforeach()
endfunction()

# The default report templates (binary .rpt files kept in the source tree).
function(coagulation_install_templates folder)
    if(NOT EXISTS ${folder})
        return()
    endif()
    install(DIRECTORY ${folder}/ DESTINATION ${COAGULATION_TEMPLATE_INSTALL_DIR} COMPONENT runtime
        FILES_MATCHING PATTERN "*.rpt")
endfunction()
