# One static library per floor of the program.

# kalvo_sources(result pattern...): the files that match, looked up again at every build.
function(kalvo_sources result)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/")
  file(GLOB files CONFIGURE_DEPENDS ${ARGN})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# kalvo_floor(name [DEPENDS floor...] [ALSO folder...] [EXCLUDE file...]): the library kalvo_<name>
# of all <name>/*.cpp but the excluded ones, and of those in further folders.
# Includes are written from the project's root.
function(kalvo_floor name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS;ALSO;EXCLUDE")
  list(TRANSFORM arg_DEPENDS PREPEND kalvo_ OUTPUT_VARIABLE below)
  set(folders ${name} ${arg_ALSO})
  list(TRANSFORM folders APPEND "/*.h" OUTPUT_VARIABLE headers)
  list(TRANSFORM folders APPEND "/*.cpp" OUTPUT_VARIABLE sources)
  kalvo_sources(headers ${headers})
  kalvo_sources(sources ${sources})
  foreach(file IN LISTS arg_EXCLUDE)
    list(REMOVE_ITEM sources "${PROJECT_SOURCE_DIR}/${name}/${file}")
  endforeach()

  set(target kalvo_${name})
  add_library(${target} STATIC ${sources} ${headers})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PUBLIC ${below} PRIVATE kalvo_warnings)
endfunction()
