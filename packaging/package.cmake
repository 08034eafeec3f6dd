# The Debian package, made by `cpack` in the build folder (tools/package.sh does it all).

install(FILES "${PROJECT_SOURCE_DIR}/packaging/kalvoflume.xml" DESTINATION share/mime/packages)
if(TARGET kalvoflume)
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/kalvoflume.desktop"
          DESTINATION share/applications)
  install(FILES "${PROJECT_SOURCE_DIR}/desktop/icons/kalvoflume.svg"
          DESTINATION share/icons/hicolor/scalable/apps)
endif()
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION share/doc/kalvoflume)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION share/doc/kalvoflume RENAME copyright)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kalvoflume)
set(CPACK_PACKAGE_VENDOR "Kalvoflume developers")
set(CPACK_PACKAGE_CONTACT "Kalvoflume developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-core, xdg-utils, cups-client")
include(CPack)
