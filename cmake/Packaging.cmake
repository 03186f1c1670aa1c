# What `cmake --install` puts where, and the Debian package of it (`cpack` in the build folder, or `scripts/test-package`).
set(doc "${CMAKE_INSTALL_DATADIR}/doc/brackwater")
set(completions "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")

# Installs a file as NAME.gz, the same bytes whenever it is done.
find_program(GZIP gzip REQUIRED)
function(install_compressed file folder name)
  set(source "${CMAKE_SOURCE_DIR}/${file}")
  set(compressed "${CMAKE_BINARY_DIR}/installed/${name}.gz")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/installed")
  execute_process(COMMAND "${GZIP}" -9nc "${source}" OUTPUT_FILE "${compressed}" COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
  install(FILES "${compressed}" DESTINATION "${folder}")
endfunction()

install(TARGETS brackwater Brackwater mppinspect make-template RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${CMAKE_BINARY_DIR}/share/Template.mpp" DESTINATION "${CMAKE_INSTALL_DATADIR}/brackwater")
foreach(program brackwater Brackwater mppinspect make-template)
  install_compressed(packaging/${program}.1 "${CMAKE_INSTALL_MANDIR}/man1" ${program}.1)
endforeach()
# One file completes all programs; the shell looks for it under the name of each.
foreach(program brackwater Brackwater mppinspect make-template)
  install(FILES packaging/brackwater.bash-completion DESTINATION "${completions}" RENAME "${program}")
endforeach()
install(FILES packaging/_brackwater packaging/_Brackwater packaging/_mppinspect packaging/_make-template
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
# All documents, so that no link leads nowhere; two have other names in a package.
file(READ README.md readme)
string(REPLACE "](LICENSE)" "](copyright)" readme "${readme}")
string(REPLACE "](CHANGELOG.md)" "](changelog.gz)" readme "${readme}")
file(WRITE "${CMAKE_BINARY_DIR}/installed/README.md" "${readme}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS README.md)
install(FILES "${CMAKE_BINARY_DIR}/installed/README.md" CONTRIBUTING.md DESTINATION "${doc}")
install(FILES LICENSE DESTINATION "${doc}" RENAME copyright)
install_compressed(CHANGELOG.md "${doc}" changelog)
install_compressed(packaging/changelog "${doc}" changelog.Debian)
install(DIRECTORY docs DESTINATION "${doc}")
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
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"brackwater takes planning documents of the Tarnwick application (.zelb
bundles, folders of XML files) and writes a complete .mpp file of the 2007
family for each: tasks and their outline, links, constraints, resources,
calendars, assignments, baselines, notes, custom fields, currency and
properties. It exports many bundles side by side, and tells in a report what
of a document did not reach its file.
.
Brackwater is the same exporter with a fixed command line and log, for
programs that call it. mppinspect shows such files as tables, as JSON and as
a page with a bar chart, and checks them. The template that the exporters
need is part of the package; make-template makes it anew.")
# The libraries' packages and versions are read out of the programs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_SOURCE_DIR}/cmake/LibgsfVersion.cmake")
include(CPack)
