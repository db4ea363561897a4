# Events, their targets and handlers, the queue, the loop and its timers; menus and their commands.
target_sources(LmCarbon PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/EventManager.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventManagerParameters.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventTarget.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventTargetDelivery.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventTargetDispatcher.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventQueue.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventLoop.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EventLoopTimers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuCommands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuItems.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuKeys.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuLooks.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuManager.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuTracking.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuUpdating.cpp
  ${CMAKE_CURRENT_LIST_DIR}/System/SystemClock.cpp
  ${PROJECT_SOURCE_DIR}/Platform/Simulation/Source/VirtualClock.cpp)
find_package(Threads REQUIRED)
target_link_libraries(LmCarbon PRIVATE Threads::Threads)
