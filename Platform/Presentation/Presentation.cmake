target_sources(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Source/Presenter.cpp)
