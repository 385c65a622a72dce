# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# cmake -DBUILD=build-folder -DSOURCE=this-folder -P run.cmake
# Installs the build into a folder of its own, builds the consumer against it and runs it.
set(work ${BUILD}/package-test)
file(REMOVE_RECURSE ${work})
function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/installed)
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE} -B ${work}/build
    -DCMAKE_PREFIX_PATH=${work}/installed -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${work}/build)
run(${work}/build/consumer)
