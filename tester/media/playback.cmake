# Movies the media playgrounds play.
target_sources(VistraUITester PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterTestPatternMovie.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterTestPatternMovie.h
)
