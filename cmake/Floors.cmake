# The floors of the house: an upward include does not compile. Where a floor's sources look for headers is a folder of the
# build tree that holds a link to each folder that the floor may include, and nothing else.

# ostrand_sees(TARGET FOLDER...): the target may include these folders, of src/ or of the tree.
function(ostrand_sees target)
  set(view ${CMAKE_BINARY_DIR}/floors/${target})
  file(REMOVE_RECURSE ${view})
  foreach(folder IN LISTS ARGN)
    set(source ${CMAKE_SOURCE_DIR}/src/${folder})
    if(NOT EXISTS ${source})
      set(source ${CMAKE_SOURCE_DIR}/${folder})
    endif()
    get_filename_component(place ${view}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${place})
    file(CREATE_LINK ${source} ${view}/${folder} SYMBOLIC)
  endforeach()
  target_include_directories(${target} PRIVATE ${view})
endfunction()

# ostrand_sources(VARIABLE PATTERN...): the files, and a new one is found by itself.
function(ostrand_sources variable)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARGN})
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# ostrand_floor(FOLDER [LIBRARY NAME] [SEES FOLDER...]): the sources of the folder, which may include it and what it sees. They
# become objects for the libraries that are put together from them, or a static library of this name.
function(ostrand_floor folder)
  cmake_parse_arguments(floor "" LIBRARY SEES ${ARGN})
  set(root ${CMAKE_SOURCE_DIR}/src/${folder})
  if(NOT EXISTS ${root})
    set(root ${CMAKE_SOURCE_DIR}/${folder})
  endif()
  ostrand_sources(sources ${root}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(floor_LIBRARY)
    set(target ${floor_LIBRARY})
    add_library(${target} STATIC ${sources})
  else()
    string(REPLACE / _ target floor_${folder})
    add_library(${target} OBJECT ${sources})
  endif()
  ostrand_sees(${target} ${folder} ${floor_SEES})
endfunction()

# ostrand_precompile(TARGET [HEADER...]): most of a source file's way through the compiler is the same few headers, which are
# read once.
function(ostrand_precompile target)
  target_precompile_headers(${target} PRIVATE <algorithm> <array> <cmath> <filesystem> <functional> <map> <memory> <optional> <set> <span> <string>
                            <string_view> <unordered_map> <utility> <variant> <vector> <pugixml.hpp> ${ARGN})
endfunction()
