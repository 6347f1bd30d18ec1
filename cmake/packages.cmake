# The packages that scripts/package makes: scrim, and scrim-tools of the component tools.
set(CPACK_PACKAGE_NAME scrim)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The scrim developers")
set(CPACK_PACKAGE_CONTACT "The scrim developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_SET_DESTDIR ON)  # so that the installation knows the prefix, which the pages name
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_RELOCATABLE OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/finish_packages.cmake)
set(CPACK_COMPONENTS_ALL scrim tools)
set(CPACK_COMPONENT_SCRIM_DESCRIPTION
  "Shows forms, pick lists, progress bars and messages on any character
terminal and gives the answers back to the script that ran it, for which
there is a library of shell functions.")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "These are the companions: scrim-sketch makes screen files of drawings,
scrim-check finds faults in screen files, and scrim-drive runs a script's
screens without a person and draws them.")
set(CPACK_COMPONENT_TOOLS_DEPENDS scrim)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_SCRIM_PACKAGE_NAME scrim)
set(CPACK_DEBIAN_SCRIM_PACKAGE_SUGGESTS "ncurses-term, scrim-tools")

set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_MAIN_COMPONENT scrim)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_TOOLS_PACKAGE_REQUIRES "scrim = ${PROJECT_VERSION}")
set(CPACK_RPM_SPEC_MORE_DEFINE "%define _build_id_links none")
# Directories that are there already, or that other packages put files into as well.
foreach(directory IN ITEMS bash-completion bash-completion/completions fish
                           fish/vendor_completions.d man man/man1 man/man5 man/man7 vim
                           vim/vimfiles vim/vimfiles/ftdetect vim/vimfiles/syntax zsh
                           zsh/site-functions)
  list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/${directory})
endforeach()
include(CPack)
