# Debian packages, one for each use: the libraries, what client developers need, and the workstation.
# Made by scripts/package.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME movara)
set(CPACK_PACKAGE_VENDOR "Movara developers")
set(CPACK_PACKAGE_CONTACT "Movara developers <developers@movara.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://movara.example")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development workstation)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The packages depend on each other by the lines below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(series ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(runtime_package libmovara${series})

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "The shared libraries that clients and their modules are linked with.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmovara-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}), qt6-base-dev (>= 6.4)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers and the CMake package that clients are built with.")

set(CPACK_DEBIAN_WORKSTATION_PACKAGE_NAME movara-workstation)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_SECTION science)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}), libqt6svg6, qt6-qpa-plugins")
set(CPACK_COMPONENT_WORKSTATION_DESCRIPTION
    "The reference workstation: opens folders of DICOM files and shows CT and MR studies in linked viewers. Not a medical device: not for diagnosis.")

include(CPack)
