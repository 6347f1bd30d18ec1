# How things are installed. Each belongs to a component: scrim and tools, which are packages of their
# own. An installation leaves lists of what it wrote, by which the target `uninstall` takes it away.

# The prefix is known only at the installation itself, since `cmake --install` may be given another.
install(CODE "set(source \"${PROJECT_SOURCE_DIR}\")
set(build \"${PROJECT_BINARY_DIR}\")
set(datadir \"${CMAKE_INSTALL_DATADIR}\")
set(mandir \"${CMAKE_INSTALL_MANDIR}\")
set(PROJECT_VERSION ${PROJECT_VERSION})
if(NOT DEFINED lists)  # a caller may keep the lists elsewhere, with -D
  set(lists \"${PROJECT_BINARY_DIR}\")
endif()" ALL_COMPONENTS)
install(SCRIPT cmake/at_install.cmake ALL_COMPONENTS)

# install_into(COMPONENT DIRECTORY ...): install(... DESTINATION DIRECTORY COMPONENT COMPONENT).
function(install_into component directory)
  install(CODE "note_directory(\"${directory}\")" COMPONENT ${component})
  install(${ARGN} DESTINATION ${directory} COMPONENT ${component})
endfunction()

# install_program(PROGRAM COMPONENT PAGE...): the program, if it is built, its pages, and its
# completions; all three shells look for a file of the command's name. Adds it to `programs`.
function(install_program program component)
  if(NOT TARGET ${program})
    return()
  endif()
  set(programs ${programs} ${program} PARENT_SCOPE)
  install_into(${component} ${CMAKE_INSTALL_BINDIR} TARGETS ${program} RUNTIME)
  foreach(page IN LISTS ARGN)
    install(CODE "install_page(${page})" COMPONENT ${component})
  endforeach()
  install_into(${component} ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    FILES share/completions/scrim.bash RENAME ${program})
  install_into(${component} ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    FILES share/completions/scrim.fish RENAME ${program}.fish)
  install(CODE "install_zsh_completion(${program})" COMPONENT ${component})
endfunction()

# end_of_installing(): what comes after the last thing that is installed.
function(end_of_installing)
  install(CODE "note_files()" ALL_COMPONENTS)
  add_custom_target(uninstall VERBATIM COMMAND ${CMAKE_COMMAND} -D lists=${PROJECT_BINARY_DIR}
    -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake)
endfunction()
