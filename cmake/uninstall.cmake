# Takes away what the lists in the directory `lists` name: the files, and those of the directories made
# for them in which nothing else is.
cmake_minimum_required(VERSION 3.25)
foreach(list IN ITEMS files directories)
  set(${list})
  if(EXISTS "${lists}/installed_${list}.txt")
    file(STRINGS "${lists}/installed_${list}.txt" ${list})
  endif()
endforeach()

set(emptied)
foreach(file IN LISTS files)
  if(EXISTS "${file}")
    file(REMOVE "${file}")
    if(EXISTS "${file}")
      message(FATAL_ERROR "${file} cannot be removed")
    endif()
    message(STATUS "Removed: ${file}")
  endif()
  # A directory below one that was made was made as well.
  foreach(made IN LISTS directories)
    cmake_path(GET file PARENT_PATH directory)
    cmake_path(IS_PREFIX made "${directory}" was_made)
    while(was_made)
      list(APPEND emptied "${directory}")
      cmake_path(GET directory PARENT_PATH directory)
      cmake_path(IS_PREFIX made "${directory}" was_made)
    endwhile()
  endforeach()
endforeach()

list(REMOVE_DUPLICATES emptied)
list(SORT emptied ORDER DESCENDING)  # what lies in a directory comes before it
foreach(directory IN LISTS emptied)
  execute_process(COMMAND rmdir "${directory}" ERROR_QUIET)  # fails unless it is empty
endforeach()
file(REMOVE "${lists}/installed_files.txt" "${lists}/installed_directories.txt")
