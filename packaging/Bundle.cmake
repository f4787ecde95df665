# macOS: the program is a bundle with its property list and icon.
set(icon ${CMAKE_CURRENT_SOURCE_DIR}/macos/Sanovia.icns)
target_sources(sanovia PRIVATE ${icon})
set_target_properties(sanovia PROPERTIES
  MACOSX_BUNDLE ON
  MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_SOURCE_DIR}/macos/Info.plist.in
  MACOSX_BUNDLE_BUNDLE_NAME Sanovia
  MACOSX_BUNDLE_GUI_IDENTIFIER ${SANOVIA_ID}
  MACOSX_BUNDLE_ICON_FILE Sanovia.icns
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
  RESOURCE ${icon}
)
