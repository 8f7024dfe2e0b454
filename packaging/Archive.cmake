# The archive: a folder with the programs, Qt and whatever else not every Linux has, laid out as an
# AppDir, so that appimagetool makes an AppImage of it. The folder may lie anywhere: programs look for
# libraries, and Qt for its plugins, from their own place. The preset "bundle" has the paths.

# They are installed once already; here for the libraries that they need.
install(TARGETS ${programs}
  RUNTIME_DEPENDENCY_SET orvex_libraries RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Only a search path of the old kind holds for what the libraries themselves need, too.
foreach(program IN LISTS programs)
  target_link_options(${program} PRIVATE -Wl,--disable-new-dtags)
endforeach()

get_target_property(plugins Qt5::QXcbIntegrationPlugin LOCATION)
get_filename_component(plugins ${plugins}/../.. ABSOLUTE)
foreach(plugin
    imageformats/qjpeg imageformats/qtiff
    platforminputcontexts/composeplatforminputcontextplugin
    platforminputcontexts/ibusplatforminputcontextplugin
    platforms/qoffscreen platforms/qwayland-egl platforms/qwayland-generic platforms/qxcb
    wayland-decoration-client/bradient wayland-graphics-integration-client/qt-plugin-wayland-egl
    wayland-shell-integration/xdg-shell
    xcbglintegrations/qxcb-egl-integration xcbglintegrations/qxcb-glx-integration)
  get_filename_component(folder ${plugin} DIRECTORY)
  get_filename_component(file ${plugin} NAME)
  add_library(${file} MODULE IMPORTED)
  set_target_properties(${file} PROPERTIES IMPORTED_LOCATION ${plugins}/${folder}/lib${file}.so)
  install(IMPORTED_RUNTIME_ARTIFACTS ${file}
    RUNTIME_DEPENDENCY_SET orvex_libraries LIBRARY DESTINATION usr/plugins/${folder})
endforeach()

# What stays the system's: every desktop has it, and its drivers of OpenGL, which run in the same
# process, fail with older ones than they were built with. Of the libraries of xcb these are the ones
# that drivers use; the others are carried along.
install(RUNTIME_DEPENDENCY_SET orvex_libraries
  PRE_EXCLUDE_REGEXES
    [[^ld-linux]] [[^lib(c|dl|m|pthread|resolv|rt|util)\.so]]
    [[^lib(gcc_s|stdc\+\+)\.so]]
    [[^lib(expat|lzma|z|zstd)\.so]]
    [[^lib(EGL|GL|GLX|GLdispatch|OpenGL|drm|gbm)\.so]]
    [[^lib(X11|X11-xcb|Xext)\.so]] [[^libwayland-]]
    [[^libxcb(-dri2|-dri3|-glx|-present|-randr|-shm|-sync|-xfixes)?\.so]]
    # FreeType reads fonts by the two last.
    [[^lib(fontconfig|freetype|brotlicommon|brotlidec|png16)\.so]]
  LIBRARY DESTINATION usr/lib)

# Licences: of each package that a library is of, and the long texts that they name.
install(CODE [[
  file(GLOB libraries "${CMAKE_INSTALL_PREFIX}/usr/lib/*.so*")
  foreach(library IN LISTS libraries)
    get_filename_component(library "${library}" NAME)
    list(APPEND patterns "*/${library}")
  endforeach()
  execute_process(COMMAND dpkg-query --search ${patterns} OUTPUT_VARIABLE owners
    COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "(^|\n)[^:]+" packages "${owners}")
  list(TRANSFORM packages STRIP)
  list(REMOVE_DUPLICATES packages)
  foreach(package IN LISTS packages ITEMS qt5-image-formats-plugins qtwayland5)
    file(INSTALL "/usr/share/doc/${package}/copyright" FOLLOW_SYMLINK_CHAIN
      DESTINATION "${CMAKE_INSTALL_PREFIX}/usr/share/doc/${package}")
  endforeach()]])
install(DIRECTORY /usr/share/common-licenses DESTINATION usr/share/doc)

configure_file(archive-readme.in README @ONLY)
file(WRITE ${made}/qt.conf "[Paths]\nPrefix = ..\nPlugins = plugins\n")
install(FILES ${made}/qt.conf DESTINATION usr/bin)
install(FILES ${made}/README ${name}.desktop ${name}.svg DESTINATION .)
install(CODE "
  file(CREATE_LINK usr/bin/${name} \"\${CMAKE_INSTALL_PREFIX}/AppRun\" SYMBOLIC)
  file(CREATE_LINK ${name}.svg \"\${CMAKE_INSTALL_PREFIX}/.DirIcon\" SYMBOLIC)")

set(CPACK_GENERATOR TXZ)
set(CPACK_PACKAGE_FILE_NAME ${name}-${PROJECT_VERSION}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
include(CPack)
