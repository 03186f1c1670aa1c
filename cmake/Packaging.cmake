# What `cmake --install` puts where, and the Debian package of it (`cpack` in the build folder, or `scripts/test-package`).
set(doc "${CMAKE_INSTALL_DATADIR}/doc/brackwater")
set(completions "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")

install(TARGETS brackwater Brackwater mppinspect make-template RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${CMAKE_BINARY_DIR}/share/Template.mpp" DESTINATION "${CMAKE_INSTALL_DATADIR}/brackwater")
install(FILES packaging/brackwater.1 packaging/Brackwater.1 packaging/mppinspect.1 packaging/make-template.1
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
# One file completes all programs; the shell looks for it under the name of each.
foreach(program brackwater Brackwater mppinspect make-template)
  install(FILES packaging/brackwater.bash-completion DESTINATION "${completions}" RENAME "${program}")
endforeach()
install(FILES packaging/_brackwater packaging/_Brackwater packaging/_mppinspect packaging/_make-template
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
install(FILES LICENSE DESTINATION "${doc}" RENAME copyright)
install(FILES README.md CHANGELOG.md DESTINATION "${doc}")
install(FILES docs/fidelity.md docs/format.md docs/json.md docs/loss-report.schema.json
        docs/mppinspect.schema.json
        DESTINATION "${doc}/docs")
install(FILES docs/images/gantt.png DESTINATION "${doc}/docs/images")
install(DIRECTORY examples/House.zelb DESTINATION "${doc}/examples")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brackwater)
set(CPACK_PACKAGE_VENDOR "The Brackwater developers")
set(CPACK_PACKAGE_CONTACT "The Brackwater developers <developers@brackwater.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/package")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Takes .zelb bundles and a template of the 2007 family and writes complete .mpp files."
    "Comes with a\n template, and with mppinspect, which shows and checks what such a file holds.")
string(REPLACE ";" " " CPACK_DEBIAN_PACKAGE_DESCRIPTION "${CPACK_DEBIAN_PACKAGE_DESCRIPTION}")
# The libraries' packages and versions are read out of the programs. Of libgsf the build that mends the known overflows
# of the compound-file reader is needed, which its interface does not tell.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libgsf-1-114 (>= 1.14.50-1+deb12u1)")
include(CPack)
