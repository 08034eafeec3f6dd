# One static library per floor of the program.

# kalvo_links(result name...): the libraries to link in order to use the floors `name...`. A floor
# that has no sources stands for the floors below it.
function(kalvo_links result)
  set(links "")
  foreach(name IN LISTS ARGN)
    get_property(floor GLOBAL PROPERTY "KALVO_LINKS_${name}")
    list(APPEND links ${floor})
  endforeach()
  list(REMOVE_DUPLICATES links)
  set(${result} ${links} PARENT_SCOPE)
endfunction()

# kalvo_sources(result pattern...): the files that match, looked up again at every build.
function(kalvo_sources result)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/")
  file(GLOB files CONFIGURE_DEPENDS ${ARGN})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# kalvo_floor(name [DEPENDS floor...] [ALSO folder...] [EXCLUDE file...]): the library kalvo_<name>
# of all <name>/*.cpp but the excluded ones, and of those in further folders; it carries usage
# requirements only when there are none.
# Includes are written from the project's root.
function(kalvo_floor name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS;ALSO;EXCLUDE")
  kalvo_links(below ${arg_DEPENDS})
  set(headers ${name} ${arg_ALSO})
  set(sources ${name} ${arg_ALSO})
  list(TRANSFORM headers APPEND "/*.h")
  list(TRANSFORM sources APPEND "/*.cpp")
  kalvo_sources(headers ${headers})
  kalvo_sources(sources ${sources})
  foreach(file IN LISTS arg_EXCLUDE)
    list(REMOVE_ITEM sources "${PROJECT_SOURCE_DIR}/${name}/${file}")
  endforeach()

  set(target kalvo_${name})
  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${target} PUBLIC ${below} PRIVATE kalvo_warnings)
  elseif(headers)
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${target} INTERFACE ${below})
  else()
    set(target ${below})
  endif()
  set_property(GLOBAL PROPERTY "KALVO_LINKS_${name}" ${target})
endfunction()
