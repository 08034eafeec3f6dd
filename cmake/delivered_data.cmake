# The small build-time programs of tools/ and the data they make: pipe and fluid libraries in
# <build>/data/library, sample studies in <build>/data/samples, the sound in <build>/data/sound, the
# shells of the print database in <build>/data/shells, the manual in <build>/data/pdf; and copies of
# the templates of reports in <build>/data/templates, of the manual's chapters and pictures in
# <build>/data/manual and <build>/data/pictures.

# Every tools/*.cpp is a program but tools/sample_*.cpp, which belong to build_samples. What is in
# tools/manual/ and tools/tables/ belongs to build_manual and to manual_tables.
kalvo_sources(tool_sources "tools/*.cpp")
kalvo_sources(sample_sources "tools/sample_*.cpp")
list(REMOVE_ITEM tool_sources ${sample_sources})
if(NOT TARGET kalvo_desktop)
  list(REMOVE_ITEM tool_sources "${PROJECT_SOURCE_DIR}/tools/build_manual.cpp"
       "${PROJECT_SOURCE_DIR}/tools/manual_tables.cpp")
endif()
foreach(source IN LISTS tool_sources)
  cmake_path(GET source STEM tool)
  add_executable(${tool} ${source})
  target_link_libraries(${tool} PRIVATE kalvo_engine kalvo_warnings)
endforeach()
target_sources(build_samples PRIVATE ${sample_sources})
target_link_libraries(build_shells PRIVATE kalvo_jet)
if(TARGET build_manual)
  pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET libqpdf)
  kalvo_sources(manual_sources "tools/manual/*.cpp" "tools/tables/*.cpp")
  add_library(kalvo_manual_tools STATIC ${manual_sources})
  # Objects of libqpdf are held by the standard pointers.
  target_compile_definitions(kalvo_manual_tools PUBLIC POINTERHOLDER_TRANSITION=4)
  target_link_libraries(kalvo_manual_tools PUBLIC kalvo_desktop PkgConfig::QPDF
                        PRIVATE kalvo_warnings)
  target_link_libraries(build_manual PRIVATE kalvo_manual_tools)
  target_link_libraries(manual_tables PRIVATE kalvo_manual_tools)
endif()

set(KALVO_LIBRARY_DIR "${CMAKE_BINARY_DIR}/data/library")
set(KALVO_SAMPLES_DIR "${CMAKE_BINARY_DIR}/data/samples")

# kalvo_data_folder(target folder main_file DEPENDS file... COMMAND word...): fills the folder
# anew whenever something it is made from has changed; main_file is the file whose date counts.
function(kalvo_data_folder target folder main_file)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "DEPENDS;COMMAND")
  add_custom_command(
    OUTPUT "${folder}/${main_file}"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${folder}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
    COMMAND ${arg_COMMAND}
    DEPENDS ${arg_DEPENDS}
    COMMENT "Making ${folder}"
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS "${folder}/${main_file}")
endfunction()

kalvo_sources(pipe_tables "data/pipes/*.csv")
kalvo_data_folder(kalvo_pipes "${KALVO_LIBRARY_DIR}" Liquids.dat
                  DEPENDS build_pipes ${pipe_tables}
                  COMMAND build_pipes "${PROJECT_SOURCE_DIR}/data/pipes" "${KALVO_LIBRARY_DIR}")
install(DIRECTORY "${KALVO_LIBRARY_DIR}/" DESTINATION share/kalvoflume/library)
install(FILES ${pipe_tables} DESTINATION share/kalvoflume/pipes)
kalvo_data_folder(kalvo_sound "${CMAKE_BINARY_DIR}/data/sound" echo.wav
                  DEPENDS build_sound
                  COMMAND build_sound "${CMAKE_BINARY_DIR}/data/sound/echo.wav")
install(FILES "${CMAKE_BINARY_DIR}/data/sound/echo.wav" DESTINATION share/kalvoflume/sound)
set(KALVO_SHELLS_DIR "${CMAKE_BINARY_DIR}/data/shells")
kalvo_data_folder(kalvo_shells "${KALVO_SHELLS_DIR}" KALVMSTR.MDB
                  DEPENDS build_shells
                  COMMAND build_shells "${KALVO_SHELLS_DIR}")
install(DIRECTORY "${KALVO_SHELLS_DIR}/" DESTINATION share/kalvoflume/shells)
kalvo_data_folder(kalvo_samples "${KALVO_SAMPLES_DIR}" hotel.PCK
                  DEPENDS build_samples "${KALVO_LIBRARY_DIR}/Liquids.dat"
                  COMMAND build_samples "${KALVO_LIBRARY_DIR}" "${KALVO_SAMPLES_DIR}")
add_dependencies(kalvo_samples kalvo_pipes)
install(DIRECTORY "${KALVO_SAMPLES_DIR}/" DESTINATION share/kalvoflume/samples)
kalvo_sources(chapters "docs/manual/*.md")
kalvo_sources(pictures "docs/pictures/Frm*.png")
kalvo_data_folder(kalvo_chapters "${CMAKE_BINARY_DIR}/data/manual" README.md
                  DEPENDS ${chapters}
                  COMMAND "${CMAKE_COMMAND}" -E copy ${chapters} "${CMAKE_BINARY_DIR}/data/manual")
install(FILES ${chapters} DESTINATION share/kalvoflume/manual)
kalvo_data_folder(kalvo_pictures "${CMAKE_BINARY_DIR}/data/pictures" FrmMain.png
                  DEPENDS ${pictures}
                  COMMAND "${CMAKE_COMMAND}" -E copy ${pictures} "${CMAKE_BINARY_DIR}/data/pictures")
install(FILES ${pictures} DESTINATION share/kalvoflume/pictures)
if(TARGET build_manual)
  kalvo_data_folder(kalvo_manual "${CMAKE_BINARY_DIR}/data/pdf" Kalvo.pdf
                    DEPENDS build_manual ${chapters} ${pictures}
                    COMMAND build_manual "${PROJECT_SOURCE_DIR}/docs/manual" "${PROJECT_VERSION}"
                            "${CMAKE_BINARY_DIR}/data/pdf/Kalvo.pdf")
  install(FILES "${CMAKE_BINARY_DIR}/data/pdf/Kalvo.pdf" DESTINATION share/kalvoflume/pdf)
endif()
kalvo_sources(templates "data/templates/*.xls")
kalvo_data_folder(kalvo_templates "${CMAKE_BINARY_DIR}/data/templates" KALV_RS.xls
                  DEPENDS ${templates}
                  COMMAND "${CMAKE_COMMAND}" -E copy ${templates} "${CMAKE_BINARY_DIR}/data/templates")
install(FILES ${templates} DESTINATION share/kalvoflume/templates)
