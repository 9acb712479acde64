# Installs the libraries, the headers under a folder of their own, the CMake package VelmoraCalendar,
# descriptions for pkg-config, licence and guide, and the plug-in where Qt Designer looks for it: below
# QT_PLUGIN_PATH, or with the prefix /usr among the plug-ins of Debian's Qt.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(VELMORA_DESIGNER_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer CACHE STRING
    "Where the Qt Designer plug-in goes; absolute, or below the prefix")

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraCalendar)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/VelmoraCalendar)
set(translations_folder ${CMAKE_INSTALL_DATADIR}/velmora-calendar/translations)
file(RELATIVE_PATH prefix_of_pkgconfig /${pkgconfig_folder} /)

# velmora_install_part(NAME DESCRIPTION target=NameInPrograms...): what one component of the package
# has.
function(velmora_install_part component description)
    foreach(pair IN LISTS ARGN)
        string(REPLACE "=" ";" pair ${pair})
        list(GET pair 0 target)
        list(GET pair 1 name)
        set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
        install(TARGETS ${target} EXPORT VelmoraCalendar${component}Targets
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            INCLUDES DESTINATION ${header_folder} ${CMAKE_INSTALL_INCLUDEDIR})
    endforeach()
    install(EXPORT VelmoraCalendar${component}Targets NAMESPACE VelmoraCalendar::
        DESTINATION ${package_folder})
    configure_file(cmake/${description}.in ${description} @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${description} DESTINATION ${pkgconfig_folder})
endfunction()

velmora_install_part(Core velmora-calendar.pc velmora_options=Options velmora_platform=Platform
    velmora_model=Model velmora_calendar=Calendar velmora_dropdown=DropDown
    velmora_proppages=PropertyPages velmora_core=Core)
install(DIRECTORY platform model calendar dropdown proppages DESTINATION ${header_folder}
    FILES_MATCHING PATTERN *.h)
if(VELMORA_QT)
    if(BUILD_SHARED_LIBS)
        set(qt_requires Qt6Widgets)
        set(qt_definitions -DVELMORA_QT_SHARED)
    else()
        set(qt_requires "velmora-calendar = ${PROJECT_VERSION}, Qt6Widgets")
    endif()
    velmora_install_part(Qt velmora-calendar-qt6.pc velmora_qt=Qt)
    install(DIRECTORY hosts/qt/include/VelmoraCalendar DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()

configure_package_config_file(cmake/VelmoraCalendarConfig.cmake.in VelmoraCalendarConfig.cmake
    INSTALL_DESTINATION ${package_folder} PATH_VARS translations_folder)
write_basic_package_version_file(VelmoraCalendarConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraCalendarConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraCalendarConfigVersion.cmake
    DESTINATION ${package_folder})
if(VELMORA_TRANSLATIONS)
    install(FILES ${VELMORA_TRANSLATIONS} DESTINATION ${translations_folder})
endif()
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(TARGET velmora_designer)
    install(TARGETS velmora_designer LIBRARY DESTINATION ${VELMORA_DESIGNER_PLUGIN_DIR})
    cmake_path(ABSOLUTE_PATH VELMORA_DESIGNER_PLUGIN_DIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
        OUTPUT_VARIABLE plugin_folder)
    file(RELATIVE_PATH library_of_plugin ${plugin_folder} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(velmora_designer PROPERTIES INSTALL_RPATH $ORIGIN/${library_of_plugin})
endif()
