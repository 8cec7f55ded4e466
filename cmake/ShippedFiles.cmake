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
set(shipped_files ${shipped_folder}/Atomic.db)
foreach(file crystal.dat ReadMe.txt)
  add_custom_command(OUTPUT ${shipped_folder}/${file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${shipped_folder}
    COMMAND ${CMAKE_COMMAND} -E copy ${data_folder}/${file} ${shipped_folder}/${file}
    DEPENDS ${data_folder}/${file} VERBATIM)
  list(APPEND shipped_files ${shipped_folder}/${file})
endforeach()
add_custom_target(shipped_files ALL DEPENDS ${shipped_files})
