# What `cmake --install` puts where, and the Debian package made of it (`cpack --preset package`).

find_program(GZIP gzip REQUIRED)

# zerbal_install_compressed(SOURCE DESTINATION NAME): installs a text compressed, without the date, so that the same
# text is always the same file.
function(zerbal_install_compressed source destination name)
  set(compressed ${PROJECT_BINARY_DIR}/packaging/${name})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
  execute_process(COMMAND ${GZIP} -9nc ${source} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/zerbal)

install(TARGETS zerbal zerbal-map zerbal-pack)
install(PROGRAMS ${packaging}/zerbal-sample TYPE BIN)
install(FILES ${packaging}/zerbal.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/zerbal.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/src/app/icons/zerbal.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(page zerbal zerbal-map zerbal-pack zerbal-sample)
  zerbal_install_compressed(${packaging}/man/${page}.1 ${CMAKE_INSTALL_MANDIR}/man1 ${page}.1.gz)
endforeach()
install(DIRECTORY ${packaging}/bash-completion/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
zerbal_install_compressed(${packaging}/debian/changelog ${documents} changelog.gz)
install(FILES ${packaging}/debian/copyright DESTINATION ${documents})

# The sources of the sample data, for `zerbal-pack build`, and the sample data itself, which is made when installing:
# building and testing do not need it.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/pack/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zerbal/pack)
set(sample ${PROJECT_BINARY_DIR}/packaging/sample)
install(CODE "
  message(STATUS \"Making the sample data\")
  execute_process(COMMAND \"$<TARGET_FILE:zerbal-pack>\" build --pack \"${PROJECT_SOURCE_DIR}/pack\" --out \"${sample}\"
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)")
install(DIRECTORY ${sample}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zerbal/sample)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zerbal)
set(CPACK_PACKAGE_VENDOR "The Zerbal authors")
set(CPACK_PACKAGE_CONTACT "The Zerbal authors <maintainers@zerbal.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "route-map viewer for an airline's flight schedule")
set(CPACK_PACKAGE_DESCRIPTION
"Draws the flights of one airline over a map of the world, with coasts, rivers
and boundaries, the world's airports and the airline's destinations. It reads
the airline's own desktop databases and never writes to them.
.
The package also has zerbal-pack, which makes such databases from CSV files,
zerbal-map, which draws the map into a file, and a made-up airline.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Fonts that the sample data names; the map data that `zerbal-pack build` reads.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, gmt-gshhg-low, gmt-gshhg-high")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gmt-gshhg-full, qt6-wayland")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
