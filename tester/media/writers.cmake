# Photo and movie writers and the video generators.
target_sources(VistraUITester PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterDateFormatter.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterDateFormatter.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterDefaultVideoGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterDefaultVideoGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterError.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterLocation.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaWritersLogging.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterMediaWritersLogging.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterPhotoWriter.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterPhotoWriter.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterTemporaryDirectory.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterTemporaryDirectory.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterVideoGenerator.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterVideoGenerator.h
  ${CMAKE_CURRENT_LIST_DIR}/VUTesterVideoWriter.cpp ${CMAKE_CURRENT_LIST_DIR}/VUTesterVideoWriter.h
)
target_link_libraries(VistraUITester PUBLIC vut_imageio vut_movie)
