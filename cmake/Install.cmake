# Where everything goes in a system, and the Debian package. The program loads its data from its own folder, so that
# folder holds links to the place where a system keeps data; the path of commands holds a link to the program.
include(GNUInstallDirs)
set(program_folder lib/quillshift)
set(data_folder ${CMAKE_INSTALL_DATADIR}/quillshift)
set(links ${PROJECT_BINARY_DIR}/links)
file(MAKE_DIRECTORY ${links})

install(TARGETS quillshift RUNTIME DESTINATION ${program_folder})
file(CREATE_LINK ../${program_folder}/quillshift ${links}/quillshift SYMBOLIC)
install(FILES ${links}/quillshift DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS wizard_window RUNTIME DESTINATION ${program_folder})
file(CREATE_LINK ../${program_folder}/Wizard.exe ${links}/quillshift-rescue SYMBOLIC)
install(FILES ${links}/quillshift-rescue DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS quillshift-wizard RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES packaging/quillshift-wizard.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME quillshift-wizard)
install(DIRECTORY Data Sounds DESTINATION ${data_folder})
install(FILES License.rtf Splash.spl DESTINATION ${data_folder})
foreach(data Data Sounds License.rtf Splash.spl)
    file(CREATE_LINK ../../${data_folder}/${data} ${links}/${data} SYMBOLIC)
    install(FILES ${links}/${data} DESTINATION ${program_folder})
endforeach()

install(FILES packaging/quillshift.desktop packaging/quillshift-rescue.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/quillshift.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size 16x16 22x22 24x24 32x32 48x48 64x64 128x128 256x256 scalable)
    install(DIRECTORY packaging/icons/${size}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}/apps)
endforeach()

find_program(GZIP gzip REQUIRED)
function(install_packed from name folder)
    set(packed ${PROJECT_BINARY_DIR}/packed/${name}.gz)
    add_custom_command(OUTPUT ${packed} DEPENDS ${PROJECT_SOURCE_DIR}/${from} VERBATIM
        COMMAND sh -c "mkdir -p \"$(dirname \"$2\")\" && \"$0\" -9nc \"$1\" >\"$2\""
            ${GZIP} ${PROJECT_SOURCE_DIR}/${from} ${packed})
    add_custom_target(packed_${name} ALL DEPENDS ${packed})
    install(FILES ${packed} DESTINATION ${folder})
endfunction()
install_packed(packaging/quillshift.1 quillshift.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_packed(packaging/quillshift-rescue.1 quillshift-rescue.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_packed(packaging/quillshift-wizard.1 quillshift-wizard.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_packed(CHANGELOG.md changelog share/doc/quillshift)
install_packed(packaging/debian/changelog changelog.Debian share/doc/quillshift)
install(FILES packaging/debian/copyright DESTINATION share/doc/quillshift)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "Morvane Tolric")
set(CPACK_PACKAGE_CONTACT "Morvane Tolric <author@quillshift.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time, where the linker does not see it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libsdl2-2.0-0, fonts-liberation, cups-client")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "editor that rescues Russian text
Opens plain and rich text that shows as gibberish and re-codes it in one of
twenty directions between five Cyrillic character sets: DOS 866, Windows
1251, UNIX KOI-8, ISO 8859-5 and MAC Apple.")
include(CPack)
