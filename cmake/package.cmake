# The installed program and its Debian package:  cpack --config build/CPackConfig.cmake
#
# Program and data lie together in one folder, as they do in the build tree: the
# program looks for what it needs beside itself.
set(home lib/corvane)
set(package_data ${CMAKE_SOURCE_DIR}/data/package)
set(made ${CMAKE_CURRENT_BINARY_DIR}/package-data)

install(TARGETS corvane corvane-pdf RUNTIME DESTINATION ${home})
install(TARGETS corvane_page LIBRARY DESTINATION ${home}/web-process)
install(FILES data/talker.acf data/talker-idle.svg data/talker-speaking.svg DESTINATION ${home})
if(EXISTS ${CMAKE_SOURCE_DIR}/data/cvhelp.txt)
  install(FILES data/cvhelp.txt DESTINATION ${home})
endif()
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
  file(CREATE_LINK ../${home}/corvane \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/corvane\" SYMBOLIC)")

install(FILES data/xdg/corvane/Corvane.ini DESTINATION /etc/xdg/corvane)
install(FILES ${package_data}/org.corvane.Corvane.desktop DESTINATION share/applications)
install(FILES ${package_data}/org.corvane.Corvane.metainfo.xml DESTINATION share/metainfo)
install(FILES ${package_data}/org.corvane.Corvane.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/data/dbus/org.corvane.Corvane.xml
        DESTINATION share/dbus-1/interfaces)
set(installed_program /usr/bin/corvane)
configure_file(${package_data}/org.corvane.Corvane.service.in ${made}/org.corvane.Corvane.service @ONLY)
install(FILES ${made}/org.corvane.Corvane.service DESTINATION share/dbus-1/services)

# Texts, compressed as Debian wants them.
find_program(GZIP gzip REQUIRED)
function(install_compressed file name folder)
  get_filename_component(source ${file} ABSOLUTE BASE_DIR ${CMAKE_SOURCE_DIR})
  add_custom_command(
    OUTPUT ${made}/${name}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${made}
    COMMAND ${GZIP} -9nc ${source} > ${made}/${name}.gz
    DEPENDS ${source}
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY corvane_compressed ${made}/${name}.gz)
  install(FILES ${made}/${name}.gz DESTINATION ${folder})
endfunction()
configure_file(${package_data}/corvane.1 ${made}/corvane.1 @ONLY)
install_compressed(${made}/corvane.1 corvane.1 share/man/man1)
install_compressed(${package_data}/changelog changelog share/doc/corvane)
foreach(manual automation user-guide)
  if(EXISTS ${CMAKE_SOURCE_DIR}/docs/${manual}.md)
    install_compressed(docs/${manual}.md ${manual}.md share/doc/corvane)
  endif()
endforeach()
install(FILES ${package_data}/copyright DESTINATION share/doc/corvane)
install(FILES examples/say.py DESTINATION share/doc/corvane/examples)
install(FILES ${package_data}/lintian-overrides DESTINATION share/lintian/overrides RENAME corvane)
get_property(compressed GLOBAL PROPERTY corvane_compressed)
add_custom_target(package_texts ALL DEPENDS ${compressed})

# Packing takes what is built; it builds nothing.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "The Corvane developers")
set(CPACK_PACKAGE_CONTACT "The Corvane developers <developers@corvane.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://corvane.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "talking web browser for people who cannot read the screen")
set(CPACK_PACKAGE_DESCRIPTION "Corvane shows real web pages and says them: the title of each
page that finishes loading, its links, buttons and fields as they get the
focus. The page's text stands in a pane of its own, to be read line by line.
Everything is done with the keyboard, and it speaks from its first start.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
    GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is started or read at run time, not linked.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "espeak-ng-data, at-spi2-core, default-dbus-session-bus | dbus-session-bus, glib-networking, adwaita-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pipewire-pulse | pulseaudio, fonts-dejavu-core, poppler-data")
# Who wants another synthesizer has it speak through Speech Dispatcher.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS speech-dispatcher)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${package_data}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)
