// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/webgl_exporter.h"

#include "platform/file.h"
#include "platform/resource_text.h"
#include "scene/webgl/document_path.h"
#include "scene/webgl/document_writer.h"
#include "scene/webgl/export_faces.h"
#include "scene/webgl/export_view.h"
#include "scene/webgl/webgl_objects.h"
#include "scene/webgl/webgl_text.h"

namespace ogl {

namespace {

constexpr int kObjectVertexResource = 135;
constexpr int kObjectFragmentResource = 136;
constexpr int kDepthVertexResource = 137;
constexpr int kDepthFragmentResource = 138;

std::string withoutLineEnds(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

void writeVector(DocumentWriter& out, Vec3 v) {
    out << v.x << "," << v.y << "," << v.z;
}

void writeHome(DocumentWriter& out, const ExportView& view) {
    out << "sceneCenter=vec3.fromValues( ";
    writeVector(out, view.center);
    out << ");\neyeVec=vec3.fromValues( ";
    writeVector(out, view.eye);
    out << ");\nhomeEyeVec=vec3.fromValues( ";
    writeVector(out, view.eye);
    out << ");\nhomeSceneCenter=vec3.fromValues( ";
    writeVector(out, view.center);
    out << ");\n}\n\n";
}

void writeBackground(DocumentWriter& out, uint32_t color) {
    for (unsigned shift : {0u, 8u, 16u})
        out << (shift != 0 ? "," : "") << static_cast<float>(color >> shift & 0xffu) / 255.0f;
}

void writeLight(DocumentWriter& out, const ExportView& view) {
    writeVector(out, view.lightEye);
    out << "], [";
    writeVector(out, view.lightTarget);
    out << webgl::kLightProjection;
    const double h = view.lightHalfSize;
    out << -h << "," << h << "," << -h << "," << h << ", " << view.lightNear << ","
        << view.lightFar;
    out << webgl::kLightUniforms;
    writeVector(out, view.toLight);
    out << ");\ngl.uniform3f(objPrg.lightIntensity, ";
    writeVector(out, view.intensity);
    out << ");\ngl.uniform1f(objPrg.ambientFactor, " << view.ambient;
}

void writeIcon(DocumentWriter& out, const webgl::Icon& icon) {
    for (size_t y = 0; y < icon.size(); ++y) {
        out << (y != 0 ? ",\t\t" : "");
        for (size_t x = 0; x < icon[y].size(); ++x)
            out << (x != 0 ? "," : "") << (icon[y][x] == '#' ? "\tII,II,II,aD" : "\too,oo,oo,aL");
    }
}

void writeViewValues(DocumentWriter& out, const ExportView& view, int width, int height) {
    out << view.fov << ";\nviewAspect=" << view.aspect << ";\nviewWidth=" << width
        << ";\nviewHeight=" << height << ";\nviewZoom=" << 0.0f << ";\nhomeOrg=[" << 0.0 << ","
        << 0.0 << ",0.0]; \nhomeExt=[" << view.extent[0] << "," << view.extent[1];
}

struct ViewSize {
    int width;
    int height;
};

void writeSetUp(DocumentWriter& out, const WebGLShaders& shaders, const SCENE& scene,
                const ExportView& view, ViewSize size) {
    out << webgl::kInitRenderer;
    writeBackground(out, scene.geometry.backgroundColor);
    out << webgl::kObjectProgram << shaders.objectVertex << "\",\"" << shaders.objectFragment
        << webgl::kObjectLocations;
    writeLight(out, view);
    out << webgl::kUiProgram << size.width << ",0," << size.height << webgl::kArrowTexels;
    writeIcon(out, webgl::kArrowIcon);
    out << webgl::kHomeTexels;
    writeIcon(out, webgl::kHomeIcon);
    out << webgl::kDepthProgram << shaders.depthVertex << "\",\"" << shaders.depthFragment
        << webgl::kDepthLocations;
    writeViewValues(out, view, size.width, size.height);
    out << webgl::kStart << view.diagonal << ");\ndrawFrame();\n}\ninitRenderer( );\n";
}

} // namespace

WebGLShaders loadWebGLShaders() {
    return {loadResourceText(kObjectVertexResource), loadResourceText(kObjectFragmentResource),
            loadResourceText(kDepthVertexResource), loadResourceText(kDepthFragmentResource)};
}

WebGLExporter::WebGLExporter(const WebGLShaders& shaders)
    : shaders_{withoutLineEnds(shaders.objectVertex), withoutLineEnds(shaders.objectFragment),
               withoutLineEnds(shaders.depthVertex), withoutLineEnds(shaders.depthFragment)} {}

bool WebGLExporter::write(const SCENE& scene, const std::string& path, int width,
                          int height) const {
    const SceneLists lists(scene);
    const ExportFaces faces(scene, lists);
    const ExportView view = exportView(scene, lists, faces.bounds(), width, height);
    const DocumentPath place(path);
    const FileHandle file(openFile(path.c_str(), "wb"));
    if (file == nullptr)
        return false;
    DocumentWriter out(file.get());
    out << webgl::kInitObjects;
    writeWebGLObjects(out, lists, faces, place);
    out << webgl::kGroundObject << "\n";
    writeHome(out, view);
    out << webgl::kInitTextures;
    writeSetUp(out, shaders_, scene, view, {width, height});
    return true;
}

} // namespace ogl
