# What every target of the project is compiled with.
add_library(zerbal_options INTERFACE)
target_compile_options(zerbal_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  # Coordinates are defined step by step in single and double precision: no fused operations.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping copies in plain assignments to std::string (its bug 105651).
  target_compile_options(zerbal_options INTERFACE -Wno-restrict)
  if(CMAKE_UNITY_BUILD)
    # A source included by another one counts as a header, and types of unnamed namespaces in it as an error.
    target_compile_options(zerbal_options INTERFACE -Wno-subobject-linkage)
  endif()
endif()
if(ZERBAL_WARNINGS_AS_ERRORS)
  target_compile_options(zerbal_options INTERFACE -Werror)
endif()
if(ZERBAL_ASSERTIONS)
  target_compile_definitions(zerbal_options INTERFACE ZERBAL_ASSERTIONS _GLIBCXX_ASSERTIONS)
endif()

if(WIN32)
  target_compile_definitions(zerbal_options INTERFACE UNICODE _UNICODE _FILE_OFFSET_BITS=64 __USE_MINGW_ANSI_STDIO=1)
  target_link_options(zerbal_options INTERFACE -static)  # the programs need no files of the compiler beside them
endif()

# zerbal_program_resources(TARGET): on Windows, the program's version and manifest.
function(zerbal_program_resources name)
  if(WIN32)
    set(resources ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
    target_sources(${name} PRIVATE ${resources})
  endif()
endfunction()

# zerbal_include_root(TARGET FOLDER): TARGET and its users include the headers of FOLDER as "NAME/header.h", NAME being
# the folder's last part. The include path holds a link to FOLDER and nothing beside it.
function(zerbal_include_root target folder)
  cmake_path(GET folder FILENAME name)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/layers/${name})
  file(CREATE_LINK ${folder} ${PROJECT_BINARY_DIR}/layers/${name}/${name} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/layers/${name})
endfunction()

# Of the layers in which a redraw spends its time. Under the sanitizers their tests take too long without optimisation, and
# the other layers take longer to compile with it.
add_library(zerbal_hot_options INTERFACE)
target_compile_options(zerbal_hot_options INTERFACE ${ZERBAL_HOT_OPTIONS})

# zerbal_layer(NAME SOURCES... [USES libraries...] [USES_INSIDE libraries...] [INTERNALS] [HOT]): the library of one layer
# of src/. Its sources can include the headers of the layer itself and of the layers that it names, as the table of
# docs/architecture.md lists them. Users of the layer also see the headers of USES, because its own headers include
# them, but not those of USES_INSIDE.
# INTERNALS: headers in subfolders are private. Users see the headers of the folder alone, and those that name
# zerbal_NAME_internals, as tests do, see all.
# HOT: compiled with zerbal_hot_options.
function(zerbal_layer name)
  cmake_parse_arguments(LAYER "INTERNALS;HOT" "" "SOURCES;USES;USES_INSIDE" ${ARGN})
  set(folder ${PROJECT_SOURCE_DIR}/src/${name})
  add_library(zerbal_${name} STATIC ${LAYER_SOURCES})
  target_link_libraries(zerbal_${name} PUBLIC ${LAYER_USES} PRIVATE ${LAYER_USES_INSIDE} zerbal_options)
  if(LAYER_HOT)
    target_link_libraries(zerbal_${name} PRIVATE zerbal_hot_options)
  endif()
  if(NOT LAYER_INTERNALS)
    zerbal_include_root(zerbal_${name} ${folder})
    return()
  endif()
  set(root ${PROJECT_BINARY_DIR}/layers/${name})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/public/${name} ${root}/all)
  file(CREATE_LINK ${folder} ${root}/all/${name} SYMBOLIC)
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/*.h)
  foreach(header IN LISTS headers)
    file(CREATE_LINK ${folder}/${header} ${root}/public/${name}/${header} SYMBOLIC)
  endforeach()
  target_include_directories(zerbal_${name} INTERFACE ${root}/public PRIVATE ${root}/all)
  add_library(zerbal_${name}_internals INTERFACE)
  target_include_directories(zerbal_${name}_internals BEFORE INTERFACE ${root}/all)
  target_link_libraries(zerbal_${name}_internals INTERFACE zerbal_${name})
endfunction()

# zerbal_moc(TARGET HEADERS...): runs moc on headers with Q_OBJECT and compiles all it writes as one source of TARGET.
# AUTOMOC scans every source first, and a unity build cannot take in what it writes.
function(zerbal_moc target)
  qt_wrap_cpp(outputs ${ARGN} TARGET ${target})
  set_source_files_properties(${outputs} PROPERTIES HEADER_FILE_ONLY ON)  # included, not compiled
  list(TRANSFORM outputs REPLACE "(.+)" "#include \"\\1\"" OUTPUT_VARIABLE includes)
  list(JOIN includes "\n" includes)
  set(all ${CMAKE_CURRENT_BINARY_DIR}/${target}_moc.cpp)
  file(CONFIGURE OUTPUT ${all} CONTENT "@includes@\n" @ONLY)
  target_sources(${target} PRIVATE ${outputs} ${all})
endfunction()
