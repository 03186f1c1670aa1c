# What `cmake --install` puts where, and the Debian package of it.
install(TARGETS Brackwater mppinspect make-template RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES "${CMAKE_BINARY_DIR}/share/Template.mpp" DESTINATION ${CMAKE_INSTALL_DATADIR}/brackwater)
install(FILES packaging/Brackwater.1 packaging/mppinspect.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/brackwater.bash-completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME Brackwater)
install(FILES packaging/brackwater.bash-completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME mppinspect)
install(FILES packaging/_Brackwater packaging/_mppinspect DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brackwater)
set(CPACK_PACKAGE_VENDOR "The Brackwater developers")
set(CPACK_PACKAGE_CONTACT "The Brackwater developers <developers@brackwater.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/package")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
# The libraries' packages and versions are read out of the programs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
