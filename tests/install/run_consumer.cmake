# Installs the build tree into a scratch prefix, checks the installed layout
# (headers, versioned libraries, the Python module), builds the consumer
# project against the installed package and runs it.
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix}
                RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "install failed")
endif()

# The public headers live in include/NVXComputationEngine/ and nowhere else.
foreach(header NVX3DComputation.h NVXData.h NVXHostHooks.h NVX3DRSVExTool.h)
  if(NOT EXISTS ${prefix}/${INCLUDE_DIR}/NVXComputationEngine/${header})
    message(FATAL_ERROR "${header} is not installed under ${INCLUDE_DIR}/NVXComputationEngine")
  endif()
endforeach()
file(GLOB stray ${prefix}/${INCLUDE_DIR}/*.h)
if(stray)
  message(FATAL_ERROR "headers installed outside the package directory: ${stray}")
endif()

# Each shared library: lib.so -> lib.so.MAJOR -> lib.so.VERSION, with the
# SONAME lib.so.MAJOR.
foreach(library NVXComputationEngine NVX3DRSVExTool)
  set(base ${prefix}/${LIB_DIR}/lib${library}.so)
  if(NOT EXISTS ${base}.${VERSION} OR IS_SYMLINK ${base}.${VERSION})
    message(FATAL_ERROR "lib${library}.so.${VERSION} is not installed")
  endif()
  file(READ_SYMLINK ${base} link)
  file(READ_SYMLINK ${base}.${SOVERSION} solink)
  if(NOT link STREQUAL "lib${library}.so.${SOVERSION}" OR
     NOT solink STREQUAL "lib${library}.so.${VERSION}")
    message(FATAL_ERROR "lib${library}: links ${link}, ${solink}")
  endif()
  if(READELF)
    execute_process(COMMAND ${READELF} -d ${base}.${VERSION} OUTPUT_VARIABLE dynamic)
    if(NOT dynamic MATCHES "Library soname: \\[lib${library}\\.so\\.${SOVERSION}\\]")
      message(FATAL_ERROR "lib${library} has no SONAME lib${library}.so.${SOVERSION}")
    endif()
  endif()
endforeach()

# The Python module imports from the prefix with PYTHONPATH alone.
if(PYTHON)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${prefix}/${PYTHON_DIR} PYTHONDONTWRITEBYTECODE=1
            ${PYTHON} -c "import nvxcomputation, sys; p = nvxcomputation.new(); p.write_krn(sys.argv[1]); print(nvxcomputation.load_krn(sys.argv[1]).get('SUMMARY.Version'))"
            ${WORK_DIR}/python.krn
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(rc OR NOT out MATCHES "1005")
    message(FATAL_ERROR "the installed Python module failed: ${out}${err}")
  endif()
endif()

execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build
                        -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
                        "-DCMAKE_EXE_LINKER_FLAGS=${LINK_FLAGS}"
                RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "configuring the consumer failed")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "building the consumer failed")
endif()
execute_process(COMMAND ${WORK_DIR}/build/consumer ${WORK_DIR}/p.krn RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "the consumer failed: ${rc}")
endif()
