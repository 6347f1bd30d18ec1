# CPack runs it when the files of each package lie in a tree of their own, before it packs them: what
# packages have otherwise than an installation.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  set(tree "${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_INSTALL_PREFIX}/share")
  file(GLOB pages "${tree}/man/*/*")
  execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)

  # An RPM is for systems whose zsh does not look where Debian's does.
  if(CPACK_GENERATOR STREQUAL "RPM" AND EXISTS "${tree}/zsh/vendor-completions")
    file(RENAME "${tree}/zsh/vendor-completions" "${tree}/zsh/site-functions")
  endif()
endforeach()

# A Debian package has its licence and its changes under fixed names; scrim-tools has those of scrim.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(doc "${CPACK_TEMPORARY_DIRECTORY}/scrim${CPACK_INSTALL_PREFIX}/share/doc/scrim")
  file(RENAME "${doc}/LICENSE" "${doc}/copyright")
  file(RENAME "${doc}/CHANGELOG.md" "${doc}/changelog")
  execute_process(COMMAND gzip -9n "${doc}/changelog" COMMAND_ERROR_IS_FATAL ANY)
  set(doc "${CPACK_TEMPORARY_DIRECTORY}/tools${CPACK_INSTALL_PREFIX}/share/doc")
  file(MAKE_DIRECTORY "${doc}")
  file(CREATE_LINK scrim "${doc}/scrim-tools" SYMBOLIC)
endif()
