# The manual as pages to read. In a build they stand where an installation has them, as seen from
# the program, so that the manuals button finds them in both by one way.
include(GNUInstallDirs)
set(zv_manual "${CMAKE_INSTALL_DATAROOTDIR}/doc/zvmonitor/manual")
file(RELATIVE_PATH zv_manual_from_program "/${CMAKE_INSTALL_BINDIR}" "/${zv_manual}")
get_filename_component(zv_manual_built
  "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${zv_manual_from_program}" ABSOLUTE)

if(TARGET zv_app)
  target_compile_definitions(zv_app PUBLIC "ZV_MANUAL=\"${zv_manual_from_program}\"")
endif()

if(ZV_SCREENS)
  file(GLOB zv_manual_sources CONFIGURE_DEPENDS
    "${CMAKE_SOURCE_DIR}/docs/manual.*" "${CMAKE_SOURCE_DIR}/docs/pictures/*.png")
  set(zv_manual_stamp "${CMAKE_BINARY_DIR}/manual.stamp")
  add_custom_command(OUTPUT "${zv_manual_stamp}"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${zv_manual_built}"
    COMMAND "${CMAKE_SOURCE_DIR}/scripts/manual" html "${zv_manual_built}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${zv_manual_stamp}"
    DEPENDS ${zv_manual_sources} "${CMAKE_SOURCE_DIR}/scripts/manual"
    COMMENT "Manual" VERBATIM)
  add_custom_target(manual ALL DEPENDS "${zv_manual_stamp}")
  if(TARGET ZVMonitor)
    add_dependencies(ZVMonitor manual)
  endif()
  install(DIRECTORY "${zv_manual_built}/" DESTINATION "${zv_manual}")
endif()
