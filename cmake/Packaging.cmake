# cpack makes two Debian packages, the panel's and kl5276ctl's, which needs no display libraries, and one archive of both
# that runs from whatever folder it is unpacked into.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME panel)

# Manuals and changes as Debian has them: packed, and the same from each build.
find_program(GZIP gzip REQUIRED)
function(install_packed component destination file)
  get_filename_component(name ${file} NAME)
  set(packed ${CMAKE_BINARY_DIR}/packed/${component}/${name}.gz)
  configure_file(${file} ${CMAKE_BINARY_DIR}/packed/${component}/${name} COPYONLY)
  execute_process(COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/${file} OUTPUT_FILE ${packed} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${packed} DESTINATION ${destination} COMPONENT ${component})
endfunction()
foreach(manual app/trx5276.1 simulator/kl5276-sim.1 simulator/qd204-sim.1)
  install_packed(panel ${CMAKE_INSTALL_MANDIR}/man1 ${manual})
endforeach()
install_packed(ctl ${CMAKE_INSTALL_MANDIR}/man1 ctl/kl5276ctl.1)
install_packed(panel ${CMAKE_INSTALL_DATADIR}/doc/trx5276 app/changelog)
install_packed(ctl ${CMAKE_INSTALL_DATADIR}/doc/kl5276ctl app/changelog)

install(TARGETS trx5276 kl5276-sim qd204-sim)
install(TARGETS kl5276ctl COMPONENT ctl)
install(FILES ctl/kl5276ctl.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME kl5276ctl
        COMPONENT ctl)
install(FILES app/copyright CHANGELOG.md docs/guide/shell.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kl5276ctl
        COMPONENT ctl)
install(FILES app/example.trx5276.panel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES app/example.trx5276.panel.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES app/icons/trx5276.svg DESTINATION ${icons}/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES app/icons/${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME trx5276.png)
endforeach()
install(FILES README.md CHANGELOG.md ARCHITECTURE.md CONTRIBUTING.md app/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/trx5276)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/trx5276 PATTERN docs/pictures EXCLUDE)

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME trx5276)
set(CPACK_PACKAGE_VENDOR "TRX5276 project")
set(CPACK_PACKAGE_CONTACT "TRX5276 project <support@trx5276.example>")
set(CPACK_PACKAGE_FILE_NAME trx5276-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION "Sets signal, frequency, level, sweep, modulation and output of the instrument
on an RS-232 line, reads them back, edits its arbitrary memories and moves
them. With a simulated instrument and a source of traces.")
set(CPACK_COMPONENTS_ALL panel ctl)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has a first line of its own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PANEL_PACKAGE_NAME trx5276)
set(CPACK_DEBIAN_PANEL_PACKAGE_SUGGESTS kl5276ctl)
set(CPACK_DEBIAN_CTL_PACKAGE_NAME kl5276ctl)
set(CPACK_COMPONENT_PANEL_DESCRIPTION "${PROJECT_DESCRIPTION}
${CPACK_PACKAGE_DESCRIPTION}")
set(CPACK_COMPONENT_CTL_DESCRIPTION "KL5276 function and arbitrary waveform generator from a shell
Sets, reads and fills the instrument on an RS-232 line from scripts, with the
files and limits of the panel. Needs no display.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PANEL_PACKAGE_RECOMMENDS xdg-utils)  # opens the manuals
include(CPack)
