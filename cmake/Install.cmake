# What `cmake --install` puts where: programs, sounds, help, and what a desktop wants to know.
include(GNUInstallDirs)
set(share ${CMAKE_INSTALL_DATADIR}/rollwick)

install(TARGETS rollwick RUNTIME)
install(FILES packaging/rollwick.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/rollwick)
install(DIRECTORY examples DESTINATION ${share})
install(DIRECTORY docs/ DESTINATION ${share}/help
        FILES_MATCHING PATTERN "*.md" PATTERN "testing.md" EXCLUDE PATTERN "performance.md" EXCLUDE)

if(ROLLWICK_TABLE)
  install(TARGETS rollwick-table RUNTIME)
  install(FILES packaging/rollwick-table.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(DIRECTORY assets/sounds DESTINATION ${share})
  install(FILES packaging/rollwick.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES packaging/rollwick.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/rollwick-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME rollwick.xml)
  install(FILES packaging/io.github.rollwick.Rollwick.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

# The manual pages tell of every option.
add_test(NAME man_page
         COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:rollwick> -DPAGE=${PROJECT_SOURCE_DIR}/packaging/rollwick.1
                 "-DCOMMANDS=play;run;advantage;dice:draw;dice:show;dice:make;script:show;script:build;script:check;script:statements;game:show;game:fields;games:show;log:show"
                 -P ${PROJECT_SOURCE_DIR}/cmake/CheckManPage.cmake)
if(ROLLWICK_TABLE)
  add_test(NAME man_page_table
           COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:rollwick-table>
                   -DPAGE=${PROJECT_SOURCE_DIR}/packaging/rollwick-table.1
                   -P ${PROJECT_SOURCE_DIR}/cmake/CheckManPage.cmake)
endif()
