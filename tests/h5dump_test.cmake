# h5dump for a Windows test program, which cannot start the build machine's
# h5dump itself. The one test FILTER runs three steps in WORK_DIR:
#  1. the test program writes its file and leaves a copy as layout.h5
#     (NVX_H5DUMP_EXPORT), then skips;
#  2. h5dump OPTIONS layout.h5 > dump.txt here;
#  3. the test program runs again and checks dump.txt (NVX_H5DUMP_TEXT).
string(REPLACE "|" ";" EMULATOR "${EMULATOR}")
string(REPLACE "|" ";" OPTIONS "${OPTIONS}")
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

set(ENV{NVX_H5DUMP_EXPORT} layout.h5)
execute_process(COMMAND ${EMULATOR} ${PROGRAM} --gtest_filter=${FILTER}
                WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE out
                ERROR_VARIABLE out)
unset(ENV{NVX_H5DUMP_EXPORT})
if(rc OR NOT EXISTS ${WORK_DIR}/layout.h5)
  message(FATAL_ERROR "${FILTER} left no file for h5dump (exit ${rc}):\n${out}")
endif()

execute_process(COMMAND ${H5DUMP} ${OPTIONS} layout.h5 WORKING_DIRECTORY ${WORK_DIR}
                RESULT_VARIABLE rc OUTPUT_FILE ${WORK_DIR}/dump.txt ERROR_VARIABLE err)
if(rc)
  message(FATAL_ERROR "h5dump failed (exit ${rc}): ${err}")
endif()

set(ENV{NVX_H5DUMP_TEXT} dump.txt)
execute_process(COMMAND ${EMULATOR} ${PROGRAM} --gtest_filter=${FILTER}
                WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE out
                ERROR_VARIABLE out)
if(rc OR NOT out MATCHES "\\[  PASSED  \\] 1 test" OR out MATCHES "SKIPPED")
  message(FATAL_ERROR "${FILTER} on the h5dump output (exit ${rc}):\n${out}")
endif()
