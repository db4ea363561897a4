# A Mac as far as CMake can tell: it is configured for, and nothing is linked. LM_STAND_IN_COMPILER is a clang++,
# beside which there is a clang, and LM_STAND_IN_ARCH what they compile for.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LM_STAND_IN_COMPILER LM_STAND_IN_ARCH)
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 11)
string(REPLACE "clang++" "clang" CMAKE_C_COMPILER "${LM_STAND_IN_COMPILER}")
set(CMAKE_CXX_COMPILER "${LM_STAND_IN_COMPILER}")
set(CMAKE_C_COMPILER_TARGET "${LM_STAND_IN_ARCH}-apple-macosx10.7")
set(CMAKE_CXX_COMPILER_TARGET "${LM_STAND_IN_ARCH}-apple-macosx10.7")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
# CMake asks for it, and has no need of it here.
set(CMAKE_INSTALL_NAME_TOOL true CACHE FILEPATH "")
