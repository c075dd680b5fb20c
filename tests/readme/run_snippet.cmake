# Runs the README's host snippet in an empty folder (with a per-user folder of
# its own, so no personal template is read) and checks the file it writes.
# EMULATOR (with '|' between its words) runs a cross-built snippet; on
# Windows CONFIG is the per-user folder as the snippet sees it.
string(REPLACE "|" ";" EMULATOR "${EMULATOR}")
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/config)
if(WINDOWS)
  if(EMULATOR)
    string(REPLACE "/" "\\" SNIPPET "Z:${SNIPPET}")
  endif()
  set(command ${EMULATOR} cmd /c "set APPDATA=${CONFIG}&& ${SNIPPET}")
else()
  set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/config)
  set(command ${EMULATOR} ${SNIPPET})
endif()
execute_process(COMMAND ${command} WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the README snippet exited with ${rc}")
endif()
file(READ ${WORK_DIR}/part.krn krn)
foreach(text "<SUMMARY>" "Flag3D = 1" "<SOLID_FILL>" "FlagInertia = 1" "<SOLID_PACK>"
             "</KRN_FILE>")
  string(FIND "${krn}" "${text}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "part.krn lacks '${text}':\n${krn}")
  endif()
endforeach()
