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

    # The import library as Microsoft's tools see it: their decorated names are of 32 bits.
    if(TOOLCHAIN MATCHES win32)
        find_program(CLANG NAMES clang clang-14 REQUIRED)
        find_program(LLD_LINK NAMES lld-link lld-link-14 REQUIRED)
        run(${CLANG} --target=i686-pc-windows-msvc -O1 -Wall -Wextra -Werror -ffreestanding
            -fno-exceptions -c ${SOURCE}/microsoft_host.cpp -o ${work}/sample/microsoft_host.obj)
        file(WRITE ${work}/kernel32.def "LIBRARY kernel32.dll\nEXPORTS\nExitProcess@4\n")
        run(llvm-dlltool -m i386 -k -d ${work}/kernel32.def -l ${work}/kernel32.lib)
        run(${LLD_LINK} /nologo /nodefaultlib /subsystem:console /entry:start /WX
            /out:${work}/sample/microsoft_host.exe ${work}/sample/microsoft_host.obj
            ${installed}/lib/ogl.lib ${work}/kernel32.lib)
        execute_process(COMMAND ${SOURCE}/../../scripts/wine.sh run --timeout 100
                                ./microsoft_host.exe WORKING_DIRECTORY ${work}/sample
                        RESULT_VARIABLE step)
        if(NOT step EQUAL 42)
            message(FATAL_ERROR "the host of Microsoft's ABI ends with ${step}")
        endif()
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
