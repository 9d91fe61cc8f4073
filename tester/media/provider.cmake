# The placeholder media provider of the synthetic browsing session.
target_sources(VistraUITester PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaProvider.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaProvider.h
)
