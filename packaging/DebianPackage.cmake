# The Debian package: icons and change logs as Debian wants them, and what its control file says.
find_program(ORVEX_RSVG_CONVERT rsvg-convert REQUIRED)
mark_as_advanced(ORVEX_RSVG_CONVERT)
foreach(size 48 128 256)
  set(icon ${made}/${size}.png)
  add_custom_command(OUTPUT ${icon}
    COMMAND ${ORVEX_RSVG_CONVERT} --width ${size} --height ${size} --output ${icon}
      ${CMAKE_CURRENT_SOURCE_DIR}/${name}.svg
    DEPENDS ${name}.svg)
  list(APPEND pictures ${icon})
  install(FILES ${icon} DESTINATION ${icons}/${size}x${size}/apps RENAME ${name}.png)
endforeach()
add_custom_target(icons ALL DEPENDS ${pictures})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Tesmar Group <viewer@tesmar.example>")
set(CPACK_PACKAGE_DESCRIPTION "\
Shows a phylogenetic tree with up to millions of leaves as a rectangular
cladogram. Pan and zoom along the leaves, read names that thin out or fill
in with the zoom, see the whole tree beside the part in view, and export
what you see as an image.
.
Trees come from Newick files or from a tree service. Beside the viewer
there are programs that draw a tree into a picture or a PDF for print,
serve a folder of trees on one machine, and make trees up.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# An upgrade of the system upgrades the package too: 1~deb12u1 comes before 1~deb13u1.
cmake_host_system_information(RESULT system QUERY DISTRIB_ID)
cmake_host_system_information(RESULT system_version QUERY DISTRIB_VERSION_ID)
cmake_host_system_information(RESULT suite QUERY DISTRIB_VERSION_CODENAME)
string(REGEX REPLACE "^debian$" "deb" system "${system}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1~${system}${system_version}u1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${ORVEX_ORGANISATION_URL})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded when the program runs, so that no library's name tells: without the driver nothing is drawn,
# without a font the leaves have no names. TIFF is one of four kinds of picture, and a session of
# Wayland may have no X.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libgl1-mesa-dri, fonts-liberation2 | fonts-liberation | fonts-croscore")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt5-image-formats-plugins, qtwayland5")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS xvfb)

execute_process(COMMAND date --utc --rfc-email --date=${ORVEX_RELEASE_DATE}
  OUTPUT_VARIABLE release_day OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(changelog.in changelog.Debian @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog COPYONLY)
foreach(log changelog changelog.Debian)
  execute_process(COMMAND gzip -9nkf ${made}/${log} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${made}/${log}.gz DESTINATION ${documents})
endforeach()
include(CPack)
