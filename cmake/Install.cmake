# What is installed: programs, the documentation, and the English language file as an example.
# zvpos installs itself, the manual's pages too (Manual.cmake).
include(GNUInstallDirs)
set(zv_doc "${CMAKE_INSTALL_DATAROOTDIR}/doc/zvmonitor")

foreach(program ZVMonitor ZVSimulador)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  endif()
endforeach()
install(FILES "${CMAKE_SOURCE_DIR}/README.md" DESTINATION "${zv_doc}")
install(DIRECTORY "${CMAKE_SOURCE_DIR}/docs" DESTINATION "${zv_doc}" FILES_MATCHING
  PATTERN "*.md" PATTERN "*.png")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/RWLang.en.ini" DESTINATION "${zv_doc}/examples")
