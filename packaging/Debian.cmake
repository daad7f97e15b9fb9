# The Debian package, made by cpack; packaging/deb.sh does all that comes before.
install(FILES lintian-overrides DESTINATION share/lintian/overrides RENAME vor-kel COMPONENT debian EXCLUDE_FROM_ALL)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL programs debian)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME vor-kel)
set(CPACK_PACKAGE_CONTACT "The Vor_Kel developers <${VOR_ADDRESS}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "analysis of measured data: fit, errors, figures")
set(CPACK_PACKAGE_DESCRIPTION "\
Vor_Kel fits functions to measurements with errors by least squares, as they
come out of a physics laboratory. Models are composed from a catalogue or
written as formulas; the report gives parameters, errors, correlations and
the confidence level. It propagates errors by derivatives and by Monte Carlo,
simulates and transforms data, and draws figures on the screen, on paper and
into files.

The package has the program with windows, whose texts are Italian, the
calculator tabulo, vor_kel_batch for the terminal and for many files at once,
the manual in Italian, and examples.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation")
# Pictures in a terminal, EPS files, the manual in the browser; the toolkit's other way to the screen, a printer.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libsixel1, poppler-utils, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups, qt6-wayland")
set(CPACK_STRIP_FILES ON)
include(CPack)
