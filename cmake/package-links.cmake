# Run by CPack on the staged tree before it is packed: the links under /usr
# through which the desktop and the shell find the program in /opt. They
# are relative, so the tree also works unpacked into another root.
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
foreach(file ${CPACK_FERRYDOCK_LINKS})
  if(NOT EXISTS "${root}${CPACK_PACKAGING_INSTALL_PREFIX}/${file}" AND NOT IS_SYMLINK "${root}${CPACK_PACKAGING_INSTALL_PREFIX}/${file}")
    message(FATAL_ERROR "package-links: ${CPACK_PACKAGING_INSTALL_PREFIX}/${file} is not in the package")
  endif()
  set(link "${root}/usr/${file}")
  get_filename_component(folder "${link}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  file(RELATIVE_PATH target "${folder}" "${root}${CPACK_PACKAGING_INSTALL_PREFIX}/${file}")
  file(CREATE_LINK "${target}" "${link}" SYMBOLIC)
endforeach()
