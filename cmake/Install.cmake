# Installs the static libraries, the headers under a folder of their own, the CMake package
# VelmoraCalendar, and the plug-in where Qt Designer looks for it: below QT_PLUGIN_PATH, or with the
# prefix /usr among the plug-ins of Debian's Qt.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(VELMORA_DESIGNER_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer CACHE STRING
    "Where the Qt Designer plug-in goes; absolute, or below the prefix")

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraCalendar)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/VelmoraCalendar)

# Target and the name that programs know it by, behind "VelmoraCalendar::".
set(exported velmora_options=Options velmora_platform=Platform velmora_model=Model
    velmora_calendar=Calendar velmora_dropdown=DropDown velmora_proppages=PropertyPages
    velmora_core=Core)
set(header_folders platform model calendar dropdown proppages)
if(VELMORA_QT)
    list(APPEND exported velmora_qt=Qt)
    install(DIRECTORY hosts/qt/include/VelmoraCalendar DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()

foreach(pair IN LISTS exported)
    string(REPLACE "=" ";" pair ${pair})
    list(GET pair 0 target)
    list(GET pair 1 name)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} EXPORT VelmoraCalendarTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${header_folder} ${CMAKE_INSTALL_INCLUDEDIR})
endforeach()
install(DIRECTORY ${header_folders} DESTINATION ${header_folder} FILES_MATCHING PATTERN *.h)
install(EXPORT VelmoraCalendarTargets NAMESPACE VelmoraCalendar:: DESTINATION ${package_folder})

configure_package_config_file(cmake/VelmoraCalendarConfig.cmake.in VelmoraCalendarConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(VelmoraCalendarConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraCalendarConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraCalendarConfigVersion.cmake
    DESTINATION ${package_folder})

if(TARGET velmora_designer)
    install(TARGETS velmora_designer LIBRARY DESTINATION ${VELMORA_DESIGNER_PLUGIN_DIR})
endif()
