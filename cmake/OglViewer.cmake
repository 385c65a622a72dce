# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# The files of viewer/ that make up the page; gl-matrix comes from npm, by the name in package.json.
set(OGL_VIEWER ${CMAKE_SOURCE_DIR}/viewer)
set(OGL_VIEWER_FILES
    index.html
    viewer/camera.js
    viewer/draw.js
    viewer/icon.svg
    viewer/input.js
    viewer/page.js
    viewer/scene.js
    viewer/viewer.css
)
set(OGL_GL_MATRIX ${OGL_VIEWER}/node_modules/gl-matrix/gl-matrix-min.js)
if(NOT EXISTS ${OGL_GL_MATRIX})
    message(STATUS "Installing gl-matrix into viewer/node_modules")
    execute_process(COMMAND npm ci --omit=dev --no-audit --no-fund WORKING_DIRECTORY ${OGL_VIEWER}
                    OUTPUT_QUIET ERROR_VARIABLE npm_errors RESULT_VARIABLE npm_result)
    if(NOT npm_result EQUAL 0 OR NOT EXISTS ${OGL_GL_MATRIX})
        message(FATAL_ERROR "npm could not install gl-matrix (scripts/setup.sh installs npm):\n"
                            "${npm_errors}")
    endif()
endif()

# ogl_viewer_page(NAME FOLDER)
# Declares the target that puts the page into a folder.
function(ogl_viewer_page name folder)
    set(copies)
    foreach(file IN LISTS OGL_VIEWER_FILES)
        add_custom_command(
            OUTPUT ${folder}/${file}
            COMMAND ${CMAKE_COMMAND} -E copy ${OGL_VIEWER}/${file} ${folder}/${file}
            DEPENDS ${OGL_VIEWER}/${file}
            VERBATIM)
        list(APPEND copies ${folder}/${file})
    endforeach()
    add_custom_command(
        OUTPUT ${folder}/viewer/gl-matrix.js
        COMMAND ${CMAKE_COMMAND} -E copy ${OGL_GL_MATRIX} ${folder}/viewer/gl-matrix.js
        DEPENDS ${OGL_GL_MATRIX}
        VERBATIM)
    list(APPEND copies ${folder}/viewer/gl-matrix.js)
    add_custom_target(${name} DEPENDS ${copies})
endfunction()
