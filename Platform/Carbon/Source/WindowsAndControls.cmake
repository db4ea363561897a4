# The Window Manager and the Control Manager.
target_sources(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Control.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlData.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlHierarchy.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlKinds/Buttons.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlKinds/Containers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlKinds/Creation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlKinds/Ranges.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlKinds/Texts.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlManager.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ControlTracking.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Geometry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyboardFocus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Properties.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WindowDefaults.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WindowManager.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WindowOrder.cpp)
