# What `cmake --install` puts in place: the headers, the shared libraries, the CMake package, the pkg-config
# file, the documentation, the licence and the examples. The components are the packages that LmPackages.cmake
# makes of them; without a component named, all is installed.
include(CMakePackageConfigHelpers)

set(LM_INSTALLED_LIBRARIES LmBindings LmControllers LmInspection LmInspector)
if(NOT APPLE)
  list(APPEND LM_INSTALLED_LIBRARIES LmCarbon LmCoreFoundation)
else()
  list(APPEND LM_INSTALLED_LIBRARIES LmSystemCarbon LmSystemCoreFoundation)
endif()

# Installed libraries stand side by side and find one another there, wherever the folder is moved.
if(APPLE)
  set_target_properties(LmBindings LmControllers LmInspection LmInspector PROPERTIES INSTALL_RPATH "@loader_path")
else()
  set_target_properties(${LM_INSTALLED_LIBRARIES} PROPERTIES INSTALL_RPATH "$ORIGIN")
endif()

install(TARGETS ${LM_INSTALLED_LIBRARIES}
  EXPORT LmBindingsTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Libraries NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/LmBindings COMPONENT Development)
# The desktop's library need not be installed where the others are.
if(TARGET LmCarbonDesktop)
  set_target_properties(LmCarbonDesktop PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS LmCarbonDesktop
    EXPORT LmBindingsDesktopTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Desktop NAMELINK_COMPONENT DesktopDevelopment)
  # Nobody is linked to it: that library loads it from beside itself.
  set_target_properties(LmInspectorWindow PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS LmInspectorWindow
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Desktop NAMELINK_SKIP)
endif()

if(NOT APPLE)
  foreach(theFolder CoreFoundation CoreGraphics CoreServices Drawing Carbon Presentation Simulation)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/Platform/${theFolder}/Include/"
      DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/LmPlatform
      COMPONENT Development
      FILES_MATCHING PATTERN "*.h")
  endforeach()
endif()

set(LM_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/LmBindings)
install(EXPORT LmBindingsTargets NAMESPACE Lm:: DESTINATION ${LM_PACKAGE_DIR} COMPONENT Development)
if(TARGET LmCarbonDesktop)
  install(EXPORT LmBindingsDesktopTargets
    NAMESPACE Lm:: DESTINATION ${LM_PACKAGE_DIR} COMPONENT DesktopDevelopment)
endif()
# What the libraries themselves are linked with; programs need it to be there, and nothing to build with.
set(LM_PKGCONFIG_PRIVATE_LIBS "")
set(LM_HAS_LOCALE_DATA TRUE)
set(LM_HAS_DRAWING TRUE)
set(LM_HAS_NIBS TRUE)
if(NOT APPLE)
  get_target_property(LM_HAS_LOCALE_DATA LmCoreFoundation LM_HAS_LOCALE_DATA)
  if(LM_HAS_LOCALE_DATA)
    set(LM_PKGCONFIG_PRIVATE_LIBS "-licui18n -licuuc")
  endif()
  get_target_property(LM_HAS_DRAWING LmDrawing LM_HAS_DRAWING)
  if(LM_HAS_DRAWING)
    string(APPEND LM_PKGCONFIG_PRIVATE_LIBS " -lcairo")
  endif()
  get_target_property(LM_HAS_NIBS LmCarbon LM_HAS_NIBS)
  if(LM_HAS_NIBS)
    string(APPEND LM_PKGCONFIG_PRIVATE_LIBS " -lxml2")
  endif()
endif()
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/LmBindingsConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/LmBindingsConfig.cmake"
  INSTALL_DESTINATION ${LM_PACKAGE_DIR}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/LmBindingsConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/LmBindingsConfig.cmake"
  "${PROJECT_BINARY_DIR}/LmBindingsConfigVersion.cmake"
  DESTINATION ${LM_PACKAGE_DIR}
  COMPONENT Development)

# The pkg-config files name their folders relative to their own, so the installed tree can be moved.
file(RELATIVE_PATH LM_PKGCONFIG_TO_PREFIX
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
if(APPLE)
  set(LM_PKGCONFIG_CFLAGS "")
  set(LM_PKGCONFIG_LIBS "-framework Carbon -framework CoreFoundation")
else()
  set(LM_PKGCONFIG_CFLAGS "-isystem \${includedir}/LmPlatform -Wno-multichar")
  set(LM_PKGCONFIG_LIBS "-lLmCarbon -lLmCoreFoundation")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/lmbindings.pc.in" "${PROJECT_BINARY_DIR}/lmbindings.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/lmbindings.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
configure_file("${CMAKE_CURRENT_LIST_DIR}/lmbindings-controllers.pc.in"
  "${PROJECT_BINARY_DIR}/lmbindings-controllers.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/lmbindings-controllers.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
if(TARGET LmCarbonDesktop)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/lmbindings-desktop.pc.in"
    "${PROJECT_BINARY_DIR}/lmbindings-desktop.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/lmbindings-desktop.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT DesktopDevelopment)
endif()

# The documents link to one another as they do here, and to the examples.
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation)
if(NOT APPLE)
  install(FILES "${PROJECT_SOURCE_DIR}/Platform/Carbon/COVERAGE.md"
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/Platform/Carbon COMPONENT Documentation)
endif()
# Debian has these two under names of its own.
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/LICENSE"
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Upstream)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Documentation"
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation
  FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "*.png" PATTERN "Reference" EXCLUDE)
# With all that it takes to build and to test them where they are installed.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Examples"
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation
  FILES_MATCHING
    PATTERN "*.c" PATTERN "*.cpp" PATTERN "*.h" PATTERN "*.txt" PATTERN "*.in"
    PATTERN "*.sh" PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(TARGET lminspect)
  install(TARGETS lminspect RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Tools)
  install(FILES "${PROJECT_SOURCE_DIR}/Tools/Inspect/lminspect.1"
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  install(FILES "${PROJECT_SOURCE_DIR}/Tools/Inspect/lminspect.bash"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME lminspect COMPONENT Tools)
endif()

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  include(LmPackages)
endif()

# Last, when every file is in its place.
file(RELATIVE_PATH LM_DOCUMENTS_TO_HEADERS
  "${CMAKE_INSTALL_FULL_DOCDIR}" "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/LmInstalledLinks.cmake.in"
  "${PROJECT_BINARY_DIR}/LmInstalledLinks.cmake" @ONLY)
install(SCRIPT "${PROJECT_BINARY_DIR}/LmInstalledLinks.cmake" COMPONENT Documentation)
