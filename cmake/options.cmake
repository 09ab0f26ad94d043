# What every target of the project is compiled with.
add_library(zerbal_options INTERFACE)
target_compile_options(zerbal_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  # Coordinates are defined step by step in single and double precision: no fused operations.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping copies in plain assignments to std::string (its bug 105651).
  target_compile_options(zerbal_options INTERFACE -Wno-restrict)
endif()
if(ZERBAL_WARNINGS_AS_ERRORS)
  target_compile_options(zerbal_options INTERFACE -Werror)
endif()
if(ZERBAL_ASSERTIONS)
  target_compile_definitions(zerbal_options INTERFACE ZERBAL_ASSERTIONS)
endif()

# zerbal_room(NAME SOURCES... [DEPENDS libraries...]): the library of one room of src/.
# Headers are included by their path below src/, as "jet/recordset.h".
function(zerbal_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(zerbal_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(zerbal_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(zerbal_${name} PUBLIC ${ROOM_DEPENDS} PRIVATE zerbal_options)
endfunction()
