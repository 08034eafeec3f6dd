# One static library per floor of the program.

# kalvo_sources(result pattern...): the files that match, looked up again at every build.
function(kalvo_sources result)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/")
  file(GLOB files CONFIGURE_DEPENDS ${ARGN})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# kalvo_floor(name [IN folder] [DEPENDS floor...] [ALSO folder...] [EXCLUDE path...]): the library
# kalvo_<name> of all *.cpp in the folder, <name> unless another is given, and in further ones, but
# for the excluded files, or folders with a "/" behind, of the first.
# Includes are written from the project's root.
function(kalvo_floor name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "IN" "DEPENDS;ALSO;EXCLUDE")
  if(NOT arg_IN)
    set(arg_IN ${name})
  endif()
  list(TRANSFORM arg_DEPENDS PREPEND kalvo_ OUTPUT_VARIABLE below)
  set(folders ${arg_IN} ${arg_ALSO})
  list(TRANSFORM folders APPEND "/*.h" OUTPUT_VARIABLE headers)
  list(TRANSFORM folders APPEND "/*.cpp" OUTPUT_VARIABLE sources)
  kalvo_sources(headers ${headers})
  kalvo_sources(sources ${sources})
  foreach(path IN LISTS arg_EXCLUDE)
    list(FILTER headers EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/${arg_IN}/${path}")
    list(FILTER sources EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/${arg_IN}/${path}")
  endforeach()

  set(target kalvo_${name})
  add_library(${target} STATIC ${sources} ${headers})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PUBLIC ${below} PRIVATE kalvo_warnings)
endfunction()
