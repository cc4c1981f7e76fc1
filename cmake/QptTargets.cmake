# One static library per source folder; the link graph is what keeps the
# layers apart, so every folder names the libraries of ours it may use.

function(qpt_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
  if(QPT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# qpt_folder_library(<name> [LINK libs...])
# Every .cpp and .h of the current folder belongs to the library, so a new
# file needs no edit here. A subfolder is a library of its own.
function(qpt_folder_library name)
  cmake_parse_arguments(A "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS
       ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  # main.cpp is the entry of an executable, never part of a library.
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ${A_LINK})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC ON POSITION_INDEPENDENT_CODE ON)
  # moc runs again only when a header it has already seen changes. When the
  # glob finds a new header, its last run is forgotten, or the link would
  # fail on the new class's vtable.
  string(SHA1 headers "${sources}")
  if(DEFINED QPT_SOURCES_${name} AND NOT QPT_SOURCES_${name} STREQUAL headers)
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
  endif()
  set(QPT_SOURCES_${name} ${headers} CACHE INTERNAL "")
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${A_LINK})
  qpt_warnings(${name})
endfunction()

# qpt_program(<name> SOURCES ... LINK ... [DESTINATION dir])
function(qpt_program name)
  cmake_parse_arguments(A "" "DESTINATION" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${A_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  if(A_DESTINATION)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${A_DESTINATION})
  endif()
  target_link_libraries(${name} PRIVATE ${A_LINK})
  qpt_warnings(${name})
endfunction()
