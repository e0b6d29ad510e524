tav_add_qtest(NAME TestDomParser SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestDomParser.cpp)
