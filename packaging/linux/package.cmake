# The packages for Linux. There are two layouts, each a component of the installation: "system" follows the folders of
# the system, and the program tells by share/brindle beside bin that it is installed (src/settings/program_folder.h);
# "portable" is the folder to be unpacked anywhere. CPack makes the first a .deb and the second a .tar.gz.
set(system COMPONENT system)
install(TARGETS brindle brindle-cli DESTINATION bin ${system})
install(FILES ${option_files} DESTINATION share/brindle ${system})
brindle_install_documents("${system}" share/doc/brindle)
install(FILES packaging/linux/copyright DESTINATION share/doc/brindle ${system})
install(FILES packaging/linux/brindle.desktop DESTINATION share/applications ${system})
install(FILES packaging/linux/brindle-mime.xml DESTINATION share/mime/packages RENAME brindle.xml ${system})
install(FILES packaging/linux/brindle.svg DESTINATION share/icons/hicolor/scalable/apps ${system})
foreach(size 16 24 32 48 128 256)
  install(FILES packaging/icons/brindle-${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps
    RENAME brindle.png ${system})
endforeach()

install(FILES packaging/linux/README.txt DESTINATION . ${portable})
install(FILES packaging/linux/copyright DESTINATION documents ${portable})

set(CPACK_PACKAGE_NAME brindle)
set(CPACK_PACKAGE_VENDOR "the Brindle maintainers")
set(CPACK_PACKAGE_CONTACT "Brindle maintainers <maintainers@brindle.example>")
set(CPACK_STRIP_FILES ON)
set(CPACK_BRINDLE_BUILD ${CMAKE_BINARY_DIR})
set(CPACK_BRINDLE_PORTABLE brindle-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/choose_layout.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://brindle.example/)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Draws up timers, latches, gates and output contacts of VDR812 programs (.pl)
and VDR810 logic files (.c10), saves, prints and reports them. The companion
brindle-cli does the same for scripts, without a window.")
include(CPack)
