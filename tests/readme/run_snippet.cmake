# Runs the README's host snippet in an empty folder (with a per-user folder of
# its own, so no personal template is read) and checks the file it writes.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/config)
set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/config)
execute_process(COMMAND ${SNIPPET} WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc)
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
