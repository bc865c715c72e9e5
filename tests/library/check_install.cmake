# Installs the build into a fresh prefix, then builds and runs a small C consumer through
# find_package(quillon), and compiles it once more with the flags of the pkg-config file.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/consumer)
run(${WORK_DIR}/consumer/shared_consumer)
run(${WORK_DIR}/consumer/model_host)

file(GLOB pc_file ${prefix}/lib*/pkgconfig/quillon.pc)
set(ENV{PKG_CONFIG_PATH} "")
get_filename_component(pc_dir ${pc_file} DIRECTORY)
execute_process(COMMAND pkg-config --with-path=${pc_dir} --cflags --libs quillon
  OUTPUT_VARIABLE flags RESULT_VARIABLE rc OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know the installed quillon")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(cc -std=c99 ${CONSUMER_DIR}/consumer.c ${flags} -o ${WORK_DIR}/pc_consumer)
get_filename_component(libdir ${pc_dir} DIRECTORY)
set(ENV{LD_LIBRARY_PATH} ${libdir})
run(${WORK_DIR}/pc_consumer)

# The installed program finds the installed library by itself, and the pkg-config file has
# plain paths under the prefix.
unset(ENV{LD_LIBRARY_PATH})
if(EXISTS ${prefix}/bin/quillon)
  execute_process(COMMAND ${prefix}/bin/quillon "x + x" RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0 OR NOT out STREQUAL "2*x")
    message(FATAL_ERROR "installed quillon program: status ${rc}, output '${out}' ${err}")
  endif()
endif()
file(READ ${pc_file} pc_text)
if(pc_text MATCHES "\\.\\." OR NOT pc_text MATCHES "prefix=${prefix}\n")
  message(FATAL_ERROR "pkg-config file paths are not plain:\n${pc_text}")
endif()

# The example host builds from the installed package with the pkg-config flags alone too.
set(ENV{LD_LIBRARY_PATH} ${libdir})
run(cc -std=c99 ${CONSUMER_DIR}/../../../examples/model_host.c ${flags} -lm -o ${WORK_DIR}/model_host)
run(${WORK_DIR}/model_host)
unset(ENV{LD_LIBRARY_PATH})

# One version everywhere: the header's macros, the pkg-config file, the man page installed.
file(READ ${prefix}/include/quillon.h header)
foreach(part MAJOR MINOR PATCH)
  string(REGEX MATCH "#define QUILLON_VERSION_${part} ([0-9]+)" _ "${header}")
  list(APPEND header_version ${CMAKE_MATCH_1})
endforeach()
list(JOIN header_version "." header_version)
if(NOT pc_text MATCHES "Version: ${header_version}\n")
  message(FATAL_ERROR "header version ${header_version} is not that of the pkg-config file:\n${pc_text}")
endif()
if(EXISTS ${prefix}/bin/quillon AND NOT EXISTS ${prefix}/share/man/man1/quillon.1)
  message(FATAL_ERROR "the man page is not installed")
endif()
