target_sources(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Source/USKeyboard.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/UserSession.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/UserSimulator.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/UserSimulatorMenus.cpp)
