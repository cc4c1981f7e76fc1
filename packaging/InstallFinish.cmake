# Runs at install time, after the program folder has been copied: what is
# run there (programs and scripts) becomes runnable, and is stripped when the
# install strips; the launcher in bin/ points at QptPin, which finds its
# companions beside itself through the link; the demo's menu entry names the
# installed host under the prefix of this install.
#   QPT_INSTALL_PROGRAM_DIR  the program folder under the prefix
#   QPT_STRIP                the strip program of the toolchain
#   QPT_MENU_ENTRY           the menu entry's template

set(prefix "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
set(folder "${prefix}/${QPT_INSTALL_PROGRAM_DIR}")

file(GLOB_RECURSE files LIST_DIRECTORIES false "${folder}/*")
foreach(file IN LISTS files)
  file(READ "${file}" head LIMIT 4 HEX)
  set(elf FALSE)
  if(head STREQUAL "7f454c46")
    set(elf TRUE)
  elseif(NOT head MATCHES "^2321")  # "#!"
    continue()
  endif()
  file(CHMOD "${file}" FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
       GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  if(elf AND CMAKE_INSTALL_DO_STRIP AND QPT_STRIP)
    execute_process(COMMAND "${QPT_STRIP}" --strip-all --remove-section=.comment
                            --remove-section=.note "${file}"
                    RESULT_VARIABLE stripped)
    if(NOT stripped EQUAL 0)
      message(FATAL_ERROR "cannot strip ${file}")
    endif()
  endif()
endforeach()

set(launcher "${prefix}/bin/QptPin")
file(RELATIVE_PATH target "${CMAKE_INSTALL_PREFIX}/bin"
     "${CMAKE_INSTALL_PREFIX}/${QPT_INSTALL_PROGRAM_DIR}/QptPin")
message(STATUS "Installing: ${launcher} -> ${target}")
file(MAKE_DIRECTORY "${prefix}/bin")
file(CREATE_LINK "${target}" "${launcher}" SYMBOLIC)
list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${CMAKE_INSTALL_PREFIX}/bin/QptPin")

# Written straight into the install tree, so that installs into several
# folders at once share no file of the build.
set(QPT_DEMO_PROGRAM "${CMAKE_INSTALL_PREFIX}/${QPT_INSTALL_PROGRAM_DIR}/StandInHost")
set(entry "${prefix}/share/applications/qptpin-demo.desktop")
message(STATUS "Installing: ${entry}")
file(READ "${QPT_MENU_ENTRY}" template)
file(CONFIGURE OUTPUT "${entry}" CONTENT "${template}" @ONLY)
file(CHMOD "${entry}" FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${CMAKE_INSTALL_PREFIX}/share/applications/qptpin-demo.desktop")
