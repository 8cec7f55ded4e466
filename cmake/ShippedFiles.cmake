# The files that ship with the programs, made or copied beside them.
find_program(SQLITE3_SHELL sqlite3 REQUIRED)

set(data_folder ${PROJECT_SOURCE_DIR}/data)
set(shipped_folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})

add_custom_command(OUTPUT ${shipped_folder}/Atomic.db
  COMMAND ${CMAKE_COMMAND} -E make_directory ${shipped_folder}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${shipped_folder}/Atomic.db
  COMMAND ${SQLITE3_SHELL} -batch -bail ${shipped_folder}/Atomic.db ".read Atomic.sql"
  DEPENDS ${data_folder}/Atomic.sql ${data_folder}/element_lines.csv ${data_folder}/LICENSE.xraylib
  WORKING_DIRECTORY ${data_folder} VERBATIM)
add_custom_command(OUTPUT ${shipped_folder}/crystal.dat
  COMMAND ${CMAKE_COMMAND} -E make_directory ${shipped_folder}
  COMMAND ${CMAKE_COMMAND} -E copy ${data_folder}/crystal.dat ${shipped_folder}/crystal.dat
  DEPENDS ${data_folder}/crystal.dat VERBATIM)
add_custom_target(shipped_files ALL DEPENDS ${shipped_folder}/Atomic.db ${shipped_folder}/crystal.dat)
