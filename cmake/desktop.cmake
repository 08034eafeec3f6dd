# `kalvoflume`, the window: desktop/main.cpp over the library of the other sources of desktop/ and
# its folders. Forms are desktop/forms/*.ui; icons and the style sheet are built in.

find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Svg Network PrintSupport)
kalvo_floor(desktop DEPENDS platform
            ALSO desktop/bindings desktop/manual desktop/pages desktop/tables desktop/widgets/* EXCLUDE main.cpp)
target_link_libraries(kalvo_desktop PUBLIC Qt6::Widgets Qt6::Svg Qt6::Network Qt6::PrintSupport)
target_compile_definitions(kalvo_desktop PUBLIC QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII
                           KALVO_VERSION="${PROJECT_VERSION}")
# The last one: CMake 3.25 does not look again by itself when a header is added.
set_target_properties(
  kalvo_desktop
  PROPERTIES AUTOMOC ON AUTOUIC ON
             AUTOUIC_SEARCH_PATHS "${PROJECT_SOURCE_DIR}/desktop/forms"
             AUTOGEN_TARGET_DEPENDS
             "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/kalvo_desktop_autogen.dir/AutogenInfo.json")
kalvo_sources(desktop_resources "desktop/icons/*.svg" "desktop/*.qss")
qt_add_resources(kalvo_desktop kalvo_look PREFIX "/" BASE "${PROJECT_SOURCE_DIR}/desktop"
                 FILES ${desktop_resources})
add_executable(kalvoflume desktop/main.cpp)
target_link_libraries(kalvoflume PRIVATE kalvo_desktop kalvo_warnings)
install(TARGETS kalvoflume RUNTIME DESTINATION bin)

# For tools/compare_pages.sh; built on demand.
add_executable(workbook_pdf EXCLUDE_FROM_ALL tools/pages/workbook_pdf.cpp)
target_link_libraries(workbook_pdf PRIVATE kalvo_desktop kalvo_warnings)
