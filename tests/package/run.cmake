# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# cmake -DBUILD=build-folder -DSOURCE=this-folder [-DTOOLCHAIN=file] -P run.cmake
# Installs the build into a folder of its own, moves it, and builds and runs hosts against what is
# there, found by CMake and by pkg-config.
set(work ${BUILD}/package-test)
file(REMOVE_RECURSE ${work})
function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/first-place)
file(RENAME ${work}/first-place ${work}/installed)
set(installed ${work}/installed)
set(options -G Ninja -DCMAKE_BUILD_TYPE=Release -Dogl_DIR=${installed}/lib/cmake/ogl)
if(TOOLCHAIN)
    list(APPEND options -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()

# The sample, by its own build file, from the installed copy.
run(${CMAKE_COMMAND} ${options} -S ${installed}/share/doc/ogl/examples/minimal_host
    -B ${work}/sample)
run(${CMAKE_COMMAND} --build ${work}/sample)
if(TOOLCHAIN)
    file(COPY ${installed}/bin/ogl.dll DESTINATION ${work}/sample)
    execute_process(COMMAND ${SOURCE}/../../scripts/wine.sh run --timeout 200
                            ./minimal_host.exe --try WORKING_DIRECTORY ${work}/sample
                    COMMAND_ERROR_IS_FATAL ANY)
    file(SIZE ${work}/sample/house.bmp size)
    if(size LESS 1000)
        message(FATAL_ERROR "the sample saved no picture")
    endif()
    return()
endif()

run(${CMAKE_COMMAND} ${options} -S ${SOURCE} -B ${work}/build)
run(${CMAKE_COMMAND} --build ${work}/build)
run(${work}/build/consumer)

set(ENV{PKG_CONFIG_PATH} ${installed}/lib/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs ogl-host ogl OUTPUT_VARIABLE flags
                COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND ${flags})
run(c++ -std=c++20 ${SOURCE}/main.cpp ${flags} -o ${work}/by-pkg-config)
set(ENV{LD_LIBRARY_PATH} ${installed}/lib)
run(${work}/by-pkg-config)
run(${installed}/bin/oglview --version)
