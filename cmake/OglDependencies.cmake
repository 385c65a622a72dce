# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
add_library(ogl_system INTERFACE)
if(WIN32)
    # GLEW for MinGW is compiled by the set-up script into OGL_GLEW_DIR.
    set(OGL_GLEW_DIR "" CACHE PATH "folder with include/GL/glew.h and lib/libglew32.a")
    target_include_directories(ogl_system SYSTEM INTERFACE ${OGL_GLEW_DIR}/include)
    target_compile_definitions(ogl_system INTERFACE GLEW_STATIC)
    target_link_libraries(ogl_system INTERFACE ${OGL_GLEW_DIR}/lib/libglew32.a opengl32 glu32 gdi32
                                               user32 kernel32 dinput8 dxguid)
else()
    find_package(OpenGL REQUIRED COMPONENTS OpenGL GLX)
    find_package(GLEW REQUIRED)
    find_package(X11 REQUIRED)
    find_package(Freetype REQUIRED)
    find_package(Fontconfig REQUIRED)
    find_package(Threads REQUIRED)
    target_link_libraries(ogl_system INTERFACE GLEW::glew GLU OpenGL::OpenGL OpenGL::GLX X11::X11
                                               Freetype::Freetype Fontconfig::Fontconfig
                                               Threads::Threads ${CMAKE_DL_LIBS})
endif()

# Header-only libraries of the machine, for the Windows builds too: their headers alone are linked
# into a folder of the build, so that nothing else of /usr/include comes along.
function(ogl_header_only target name package)
    if(NOT EXISTS /usr/include/${name})
        message(FATAL_ERROR "missing headers: /usr/include/${name} (${package})")
    endif()
    set(headers ${CMAKE_BINARY_DIR}/header-only/${target})
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK /usr/include/${name} ${headers}/${name} SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${headers})
    if(IS_DIRECTORY /usr/include/${name})
        target_include_directories(${target} SYSTEM INTERFACE ${headers}/${name})
    endif()
endfunction()
ogl_header_only(ogl_cli11 CLI libcli11-dev)
ogl_header_only(ogl_json nlohmann nlohmann-json3-dev)
ogl_header_only(ogl_stb stb libstb-dev)
ogl_header_only(ogl_tiny_obj tiny_obj_loader.h libtinyobjloader-dev)
