# On Mac OS X the system supplies both interfaces that the library stands on.
#
# Carbon is a 32-bit framework: configure with CMAKE_OSX_ARCHITECTURES=i386.
foreach(theFramework Carbon CoreFoundation)
  add_library(LmSystem${theFramework} INTERFACE)
  add_library(Lm::${theFramework} ALIAS LmSystem${theFramework})
  set_target_properties(LmSystem${theFramework} PROPERTIES EXPORT_NAME ${theFramework})
  target_link_libraries(LmSystem${theFramework} INTERFACE "-framework ${theFramework}")
endforeach()
