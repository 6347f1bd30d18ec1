# Runs at the installation, which sets CMAKE_INSTALL_PREFIX and, for a staged one, DESTDIR.
cmake_minimum_required(VERSION 3.25)

# A relative path would mean another place to whoever reads the lists elsewhere.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX)
set(stage "$ENV{DESTDIR}")
if(stage)
  cmake_path(ABSOLUTE_PATH stage)
endif()

# note(LIST PATH...): adds paths to one of the lists that `uninstall` reads. What is laid out for a
# package is not installed.
function(note list)
  if(ARGN AND NOT stage MATCHES "/_CPack_Packages/")
    list(APPEND ARGN "")
    list(JOIN ARGN "\n" lines)
    file(APPEND "${lists}/installed_${list}.txt" "${lines}")
  endif()
endfunction()

# note_directory(DIRECTORY): those of the directory and its parents that are not there yet.
function(note_directory directory)
  cmake_path(ABSOLUTE_PATH directory BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}")
  set(directory "${stage}${directory}")
  while(NOT EXISTS "${directory}")
    note(directories "${directory}")
    cmake_path(GET directory PARENT_PATH directory)
  endwhile()
endfunction()

# note_files(): all that has been installed.
function(note_files)
  list(TRANSFORM CMAKE_INSTALL_MANIFEST_FILES PREPEND "${stage}")
  note(files ${CMAKE_INSTALL_MANIFEST_FILES})
endfunction()

# install_file(FILE DIRECTORY NAME); a macro, since CMake counts the file in the caller's scope.
macro(install_file file directory name)
  note_directory("${directory}")
  set(full "${directory}")
  cmake_path(ABSOLUTE_PATH full BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}")
  file(INSTALL "${file}" DESTINATION "${full}" RENAME "${name}")
endmacro()

# install_page(PAGE): with the version, and the directory that the shell library is installed in.
macro(install_page page)
  set(SCRIM_LIBRARY "${datadir}/scrim")
  cmake_path(ABSOLUTE_PATH SCRIM_LIBRARY BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}")
  configure_file("${source}/man/${page}" "${build}/man/${page}" @ONLY)
  string(REGEX MATCH "[0-9]$" section "${page}")
  install_file("${build}/man/${page}" "${mandir}/man${section}" "${page}")
endmacro()

# install_zsh_completion(PROGRAM): where zsh looks below its prefix; Debian's zsh looks elsewhere in
# /usr, which is the packages' place there.
macro(install_zsh_completion program)
  set(zsh site-functions)
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version)
    set(zsh vendor-completions)
  endif()
  install_file("${source}/share/completions/_scrim" "${datadir}/zsh/${zsh}" "_${program}")
endmacro()
