# The Debian package of the installed program (`make package`), its dependencies found by
# dpkg-shlibdeps, plus the fonts and Qt's Italian texts that the program uses (a proportional face
# for the windows as well: on a minimal system Liberation Mono would otherwise be the only one).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME contavia)
set(CPACK_PACKAGE_VENDOR "Contavia")
set(CPACK_PACKAGE_CONTACT "Contavia <contavia@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "conti bancari personali e di piccole imprese")
set(CPACK_PACKAGE_DESCRIPTION
  "Conti correnti con dati della banca e fido, categorie in gruppi, causali,\n\
movimenti con saldi progressivi, stampe, chiusura periodica con riporto\n\
del saldo e copie di sicurezza. Il programma da terminale contavia-cli\n\
esegue le stesse operazioni.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, fonts-dejavu-core, qt6-translations-l10n")
set(CPACK_STRIP_FILES ON)
include(CPack)
