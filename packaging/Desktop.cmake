# Linux: desktop entry, AppStream metainfo, icons and man pages where desktops look for them, and the Debian package.
find_program(GZIP gzip REQUIRED)

# compressed(OUTPUT INPUT): makes a gzip file that is the same whenever it is made.
function(compressed output input)
  add_custom_command(OUTPUT ${output} COMMAND ${GZIP} -9nc ${input} > ${output} DEPENDS ${input} VERBATIM)
endfunction()

configure_file(${SANOVIA_ID}.metainfo.xml.in ${SANOVIA_ID}.metainfo.xml @ONLY)
install(FILES ${SANOVIA_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${SANOVIA_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size ${SANOVIA_ICON_SIZES})
  install(FILES icons/${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME ${SANOVIA_ID}.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/resources/images/Sanovia.svg DESTINATION ${icons}/scalable/apps
        RENAME ${SANOVIA_ID}.svg)

foreach(page sanovia.1 sanovia-cli.1)
  configure_file(man/${page}.in ${page} @ONLY)
  compressed(${page}.gz ${page})
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

# Where each shell looks by itself, also in a package of Debian.
install(FILES completions/sanovia-cli.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME sanovia-cli)
install(FILES completions/_sanovia-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES completions/sanovia-cli.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# What a Debian package has and no other installation.
configure_file(debian/changelog.in changelog.Debian @ONLY)
compressed(changelog.Debian.gz changelog.Debian)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog COPYONLY)
compressed(changelog.gz changelog)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz debian/copyright
        ${PROJECT_SOURCE_DIR}/README.md ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sanovia COMPONENT debian EXCLUDE_FROM_ALL)

add_custom_target(sanovia_packaging ALL DEPENDS sanovia.1.gz sanovia-cli.1.gz changelog.Debian.gz changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sanovia)
set(CPACK_PACKAGE_VENDOR Quillmere)
set(CPACK_PACKAGE_CONTACT ${SANOVIA_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Health diary for one person")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Sanovia takes down day by day general condition, blood pressure and blood
tests, shows them for any interval of days as a table or as charts, and makes
of them a report to save or print. It speaks English, Russian, German, Spanish
and Chinese and keeps everything in one file on the person's own machine.
.
The companion sanovia-cli exchanges the diary with CSV files.")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};${PROJECT_NAME};ALL;/"
                                 "${CMAKE_BINARY_DIR};${PROJECT_NAME};debian;/")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Beside the libraries: what Qt loads by itself, its own words, and letters for all languages but Chinese.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, qt6-translations-l10n, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, qt6-wayland")
include(CPack)
