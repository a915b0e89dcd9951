# Installs the two programs as a Debian program does, and builds the Debian package:
#   cmake --build BUILD && (cd BUILD && cpack)   ->   BUILD/lumacfg_<version>_amd64.deb
# The version, on every file that names it, is PROJECT_VERSION.
set(LUMACFG_HOMEPAGE "https://lumacfg.example.org" CACHE STRING
    "Where the project is published; the AppStream screenshot is <this>/screenshots/main-window.png")
set(LUMACFG_MAINTAINER "lumacfg maintainers <maintainers@lumacfg.example.org>" CACHE STRING
    "The Debian package's maintainer")

# The AppStream identifier: the homepage's host name reversed (lumacfg.example.org gives
# org.example.lumacfg); the desktop entry keeps its name lumacfg.desktop.
string(REGEX REPLACE "^[a-z]+://([^/:]+).*$" "\\1" homepage_host "${LUMACFG_HOMEPAGE}")
string(REPLACE "." ";" homepage_host "${homepage_host}")
list(REVERSE homepage_host)
list(JOIN homepage_host "." LUMACFG_APPSTREAM_ID)

set(packaging_dir ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
set(generated_dir ${CMAKE_CURRENT_BINARY_DIR}/packaging)

# The changelog's time in the form Debian requires, at noon of the release day.
execute_process(COMMAND date -u -R -d "${LUMACFG_RELEASE_DATE} 12:00"
                OUTPUT_VARIABLE LUMACFG_RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)

set(metainfo ${generated_dir}/${LUMACFG_APPSTREAM_ID}.metainfo.xml)
configure_file(${packaging_dir}/lumacfg.metainfo.xml.in ${metainfo} @ONLY)
configure_file(${packaging_dir}/changelog.in ${generated_dir}/changelog @ONLY)
configure_file(${packaging_dir}/man/lumacfg.1.in ${generated_dir}/lumacfg.1 @ONLY)
configure_file(${packaging_dir}/man/lumacfg-cli.1.in ${generated_dir}/lumacfg-cli.1 @ONLY)

# Manual pages and the changelog are installed compressed, reproducibly (no name, no time).
set(compressed_files)
foreach(name lumacfg.1 lumacfg-cli.1 changelog)
    add_custom_command(OUTPUT ${generated_dir}/${name}.gz
                       COMMAND gzip -9nc ${generated_dir}/${name} > ${generated_dir}/${name}.gz
                       DEPENDS ${generated_dir}/${name} VERBATIM)
    list(APPEND compressed_files ${generated_dir}/${name}.gz)
endforeach()
add_custom_target(lumacfg_packaging_files ALL DEPENDS ${compressed_files})

install(TARGETS lumacfg lumacfg-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${generated_dir}/lumacfg.1.gz ${generated_dir}/lumacfg-cli.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${packaging_dir}/lumacfg.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging_dir}/icons/lumacfg.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 24 32 48 64 128 256)
    install(FILES ${packaging_dir}/icons/lumacfg-${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME lumacfg.png)
endforeach()
# The logon's PAM service; the group of those who may configure the station is made when the
# package is configured.
install(FILES ${packaging_dir}/pam/lumacfg DESTINATION /etc/pam.d)
install(FILES ${packaging_dir}/copyright ${generated_dir}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/lumacfg)
# The registry store's folder: the store itself ("registry.reg", naming the data system's folder)
# is the site's, written by the data system's installation or by the first start of the window.
install(DIRECTORY DESTINATION /etc/plasmasuite)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumacfg)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${LUMACFG_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "station configuration program of an ICP-MS data system")
set(CPACK_PACKAGE_DESCRIPTION
    "The one place where a laboratory's administrator decides how the data system\n"
    "reaches its instrument (GPIB address, LAN address, offline), remote start, the\n"
    "sample introduction hardware, the autosampler with its trays, racks, serial\n"
    "port and probe depths, prohibited masses, QC mode, security and analysis\n"
    "options. It writes the station files that every other program of the data\n"
    "system reads.\n"
    "\n"
    "The package holds the window, lumacfg, and the headless front end, lumacfg-cli,\n"
    "for the scripted set-up of many stations.")
string(REPLACE ";" "" CPACK_PACKAGE_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX ${LUMACFG_PACKAGE_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${LUMACFG_HOMEPAGE})
# dpkg-shlibdeps finds the libraries the programs link; libX11 is loaded at run time to find
# the data system's windows, so it is named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libx11-6, libpam-runtime, passwd")
# The program's own catalogues (German, Japanese) are embedded in it; Qt's catalogues translate
# its standard buttons and file dialog, and Japanese needs a font with its characters.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, fonts-noto-cjk | fonts-ipafont-gothic")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${packaging_dir}/debian/postinst ${packaging_dir}/debian/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
