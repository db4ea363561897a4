# On Mac OS X the system supplies both interfaces that the library stands on.
#
# Carbon is a 32-bit framework: what would be built with 64 bits could be compiled in part, and never be linked.
if(CMAKE_SIZEOF_VOID_P GREATER 4 OR "${CMAKE_OSX_ARCHITECTURES}" MATCHES "64")
  message(FATAL_ERROR "Carbon has 32 bits: configure with -DCMAKE_OSX_ARCHITECTURES=i386")
endif()

foreach(theFramework Carbon CoreFoundation)
  add_library(LmSystem${theFramework} INTERFACE)
  add_library(Lm::${theFramework} ALIAS LmSystem${theFramework})
  set_target_properties(LmSystem${theFramework} PROPERTIES EXPORT_NAME ${theFramework})
  target_link_libraries(LmSystem${theFramework} INTERFACE "-framework ${theFramework}")
endforeach()
