# Image generators, the colour table and the collage.
target_sources(VistraUITester PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterBitmapImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterBitmapImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterColorComponents.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterColorComponents.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaLogging.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaLogging.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterRGBAColorTable.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterRGBAColorTable.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterConcentricRectsImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterConcentricRectsImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterLayeredImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterLayeredImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterOrientedImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterOrientedImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterRadialPatternImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterRadialPatternImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterSolidColorImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterSolidColorImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterWatermarkImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterWatermarkImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterFractalImageGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterFractalImageGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterImageCollage.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterImageCollage.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterFractalComputer.h
)
