# Installed tree: lib/, include/movara/ and the package that find_package(MovaraFramework CONFIG) finds.

include(CMakePackageConfigHelpers)

set(movara_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/MovaraFramework")
set(movara_include_dir "${CMAKE_INSTALL_INCLUDEDIR}/movara")

foreach(library IN ITEMS MovaraPlatform MovaraDicomIo MovaraFramework)
    if(TARGET ${library})
        install(TARGETS ${library}
            EXPORT MovaraFrameworkTargets
            LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
                COMPONENT runtime NAMELINK_COMPONENT development
            FILE_SET HEADERS DESTINATION "${movara_include_dir}" COMPONENT development
            FILE_SET generated DESTINATION "${movara_include_dir}" COMPONENT development
            INCLUDES DESTINATION "${movara_include_dir}")
    endif()
endforeach()

install(EXPORT MovaraFrameworkTargets
    NAMESPACE Movara::
    DESTINATION "${movara_cmake_dir}"
    COMPONENT development)
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/MovaraFrameworkConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/MovaraFrameworkConfig.cmake"
    INSTALL_DESTINATION "${movara_cmake_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/MovaraFrameworkConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/MovaraFrameworkConfig.cmake"
    "${PROJECT_BINARY_DIR}/MovaraFrameworkConfigVersion.cmake"
    DESTINATION "${movara_cmake_dir}"
    COMPONENT development)
