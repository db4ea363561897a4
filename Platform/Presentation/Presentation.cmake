target_include_directories(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Headless
  ${CMAKE_CURRENT_LIST_DIR}/Source)
target_sources(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Headless/HeadlessDrawing.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Headless/HeadlessPresenter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Headless/HeadlessSnapshot.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/InputGate.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/KeyText.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/Presenter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Source/PresenterRegistry.cpp)
