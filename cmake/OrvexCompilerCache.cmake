# Compiles with ccache if it is installed: another clone of the same sources then builds in seconds.
find_program(ORVEX_CCACHE ccache)
mark_as_advanced(ORVEX_CCACHE)
if(ORVEX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ORVEX_CCACHE})
endif()
