# The Debian package (cpack -G DEB): everything installed, under /usr. Library dependencies come from
# dpkg-shlibdeps (Qt, libqpdf, HarfBuzz); added are what only gets loaded at run time (Qt's SQLite driver) and the Chinese
# fonts the reports name.
set(CPACK_PACKAGE_NAME coagulation-report)
set(CPACK_PACKAGE_VENDOR "Coagulation analyser team")
set(CPACK_PACKAGE_CONTACT "Coagulation analyser team <report@coagulation.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Report module of the coagulation analyser: plug-in, print tool, designer")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Prints patient result, QC and maintenance reports from report templates. Holds the report "
    "plug-in and library, the host library stand-ins, the print tool, the default templates, and the "
    "headers and CMake package for programs that link the report library.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY coagulation)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, fonts-noto-cjk, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-base-dev, cmake, cups")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
