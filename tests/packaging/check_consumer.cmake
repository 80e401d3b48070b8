# Builds and runs examples/consumer against this build of kvdao, in the way
# MODE names (find_package or add_subdirectory). Fails on any error.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "failed (${status}): ${ARGN}\n${out}\n${err}")
  endif()
  set(LAST_OUTPUT "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
set(consumer_build ${WORK_DIR}/consumer)
if(MODE STREQUAL "find_package")
  set(stage ${WORK_DIR}/stage)
  run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${stage})
  run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${consumer_build} -G ${GENERATOR}
      -DCMAKE_PREFIX_PATH=${stage} -DCMAKE_CXX_COMPILER=${CXX})

  # The pkg-config file names the same headers and library.
  find_program(PKG_CONFIG pkg-config)
  if(PKG_CONFIG)
    set(ENV{PKG_CONFIG_PATH} ${stage}/lib/pkgconfig)
    file(GLOB pcdirs ${stage}/lib*/pkgconfig ${stage}/lib/*/pkgconfig)
    string(REPLACE ";" ":" pcpath "${pcdirs}")
    set(ENV{PKG_CONFIG_PATH} "${pcpath}")
    run(${PKG_CONFIG} --cflags --libs kvdao)
    string(STRIP "${LAST_OUTPUT}" flags)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    run(${CXX} -std=c++20 ${SOURCE_DIR}/examples/consumer/main.cc ${flags}
        -o ${WORK_DIR}/pkgconfig_consumer)
    list(FILTER flags INCLUDE REGEX "^-L")
    string(REPLACE "-L" "" libdir "${flags}")
    set(ENV{LD_LIBRARY_PATH} "${libdir}")
    run(${WORK_DIR}/pkgconfig_consumer)
  endif()
else()
  run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${consumer_build} -G ${GENERATOR}
      -DKVDAO_SOURCE_DIR=${SOURCE_DIR} -DCMAKE_CXX_COMPILER=${CXX})
endif()
run(${CMAKE_COMMAND} --build ${consumer_build})
run(${consumer_build}/kvdao_consumer)
if(NOT LAST_OUTPUT MATCHES "rows: 3")
  message(FATAL_ERROR "unexpected consumer output: ${LAST_OUTPUT}")
endif()
