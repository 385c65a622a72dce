// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/soup_faces.h"

#include "host/soup/disjoint_sets.h"
#include "host/soup/inner_walls.h"
#include "host/soup/outlines.h"
#include "host/soup/surfaces.h"

#include <algorithm>
#include <utility>

namespace ogl::host {

namespace {

/// Numbers sorted into groups, each group in rising order.
struct Groups {
    Groups(size_t groupCount, const std::vector<uint32_t>& groupOf) {
        starts.assign(groupCount + 1, 0);
        for (const uint32_t group : groupOf)
            if (group < groupCount)
                ++starts[group + size_t{1}];
        for (size_t i = 0; i < groupCount; ++i)
            starts[i + 1] += starts[i];
        members.resize(starts.back());
        std::vector<uint32_t> next(starts.begin(), starts.end() - 1);
        for (uint32_t i = 0; i < groupOf.size(); ++i)
            if (groupOf[i] < groupCount)
                members[next[groupOf[i]]++] = i;
    }
    std::span<const uint32_t> operator[](size_t group) const {
        return {members.data() + starts[group], starts[group + 1] - starts[group]};
    }
    std::vector<uint32_t> starts;
    std::vector<uint32_t> members;
};

constexpr uint32_t kNoGroup = UINT32_MAX;

class FaceMaker {
  public:
    FaceMaker(FaceStore& store, const LoopGrid& grid, const TriangleSoup& soup,
              const SoupOptions& options, const SoupMesh& mesh, SoupReport& report)
        : store_(store), grid_(grid), soup_(soup), options_(options), mesh_(mesh), report_(report),
          edges_(makeHalfEdges(mesh, options.weldDistance)),
          surfaces_(findSurfaces(mesh, edges_, soup, options)),
          borders_(surfaces_.patchNormal.size(), borderPatches(edges_, surfaces_.patch)) {}

    void makeAll() {
        makeFlatFaces();
        makeCurvedFaces();
        if (options_.edges == EdgeLook::Visible)
            makeLines();
    }

  private:
    NewFace faceOf(std::span<const uint32_t> triangles) const {
        NewFace face;
        face.material = mesh_.triangles[triangles[0]].material;
        face.flags = options_.faceFlags;
        face.corners.reserve(triangles.size() * 3);
        for (const uint32_t t : triangles)
            for (const uint32_t corner : mesh_.triangles[t].corners)
                face.corners.push_back(mesh_.gridPoints[corner]);
        if (!soup_.texCoords.empty())
            addTexCoords(face, triangles);
        return face;
    }

    void addTexCoords(NewFace& face, std::span<const uint32_t> triangles) const {
        face.texCoords.reserve(triangles.size() * 3);
        for (const uint32_t t : triangles)
            for (const uint32_t source : mesh_.triangles[t].source) {
                const Vec2 uv = source < soup_.texCoords.size() ? soup_.texCoords[source] : Vec2{};
                const bool usable = std::isfinite(uv.x) && std::isfinite(uv.y);
                face.texCoords.push_back(usable ? uv : Vec2{});
            }
    }

    void makeFlatFaces() {
        const size_t patchCount = surfaces_.patchNormal.size();
        std::vector<uint32_t> patchOf = surfaces_.patch;
        for (size_t t = 0; t < patchOf.size(); ++t)
            if (surfaces_.curved[t])
                patchOf[t] = kNoGroup;
        const Groups triangles(patchCount, patchOf);
        const std::vector<uint8_t> inner = findInnerWalls(mesh_, edges_, surfaces_);
        for (size_t patch = 0; patch < patchCount; ++patch) {
            if (triangles[patch].empty())
                continue;
            if (inner[patch] != 0) {
                report_.inner += triangles[patch].size();
                report_.triangles -= triangles[patch].size();
                continue;
            }
            NewFace face = faceOf(triangles[patch]);
            face.outward = meanNormal(triangles[patch]);
            // The back of a sheet has the outline of its front.
            if (options_.edges == EdgeLook::Visible && !mesh_.triangles[triangles[patch][0]].back)
                face.loops = loopsOf(borders_[patch], face.outward);
            store_.add(face, grid_);
            ++report_.planarFaces;
        }
    }

    Vec3 meanNormal(std::span<const uint32_t> triangles) const {
        Vec3 sum;
        for (const uint32_t t : triangles)
            sum = sum + mesh_.normals[t] * mesh_.areas[t];
        return normalized(sum);
    }

    /// Per half-edge the patch whose border it is.
    static std::vector<uint32_t> borderPatches(const std::vector<HalfEdge>& edges,
                                               const std::vector<uint32_t>& patchOf) {
        std::vector<uint32_t> result(edges.size(), kNoGroup);
        for (size_t h = 0; h < edges.size(); ++h) {
            const uint32_t patch = patchOf[edges[h].triangle];
            const uint32_t mate = edges[h].mate;
            if (mate == kNoMate || patchOf[edges[mate].triangle] != patch)
                result[h] = patch;
        }
        return result;
    }

    std::vector<NewLoop> loopsOf(std::span<const uint32_t> border, Vec3 normal) const {
        std::vector<OutlineEdge> outline;
        outline.reserve(border.size());
        for (const uint32_t h : border)
            outline.push_back({edges_[h].from, edges_[h].to});
        std::vector<Chain> chains = traceOutline(mesh_.points, std::move(outline), normal);
        for (Chain& chain : chains)
            straighten(chain, mesh_.points, options_.weldDistance);
        return faceLoops(chains, mesh_, normal);
    }

    void makeCurvedFaces() {
        DisjointSets pieces(mesh_.triangles.size());
        for (size_t h = 0; h < edges_.size(); ++h) {
            if (!surfaces_.soft[h])
                continue;
            const uint32_t t = edges_[h].triangle;
            const uint32_t u = edges_[edges_[h].mate].triangle;
            if (surfaces_.curved[t] && surfaces_.curved[u])
                pieces.join(t, u);
        }
        std::vector<uint32_t> pieceOf(mesh_.triangles.size(), kNoGroup);
        for (uint32_t t = 0; t < pieceOf.size(); ++t)
            if (surfaces_.curved[t])
                pieceOf[t] = pieces.find(t);
        std::vector<bool> open(mesh_.triangles.size(), false);
        for (const HalfEdge& edge : edges_)
            if (edge.mate == kNoMate && pieceOf[edge.triangle] != kNoGroup)
                open[pieceOf[edge.triangle]] = true;
        const Groups triangles(mesh_.triangles.size(), pieceOf);
        for (size_t piece = 0; piece < mesh_.triangles.size(); ++piece)
            if (!triangles[piece].empty())
                makeCurvedFace(triangles[piece], open[piece]);
    }

    /// One face for what is bent and one for each flat part. Drawings show the silhouettes of all
    /// of them; the edge drawing, which has none, gets the outlines of the flat parts.
    void makeCurvedFace(std::span<const uint32_t> triangles, bool open) {
        std::vector<uint32_t> bent;
        std::vector<std::pair<uint32_t, uint32_t>> flat; // patch, triangle
        for (const uint32_t t : triangles) {
            if (surfaces_.flatPart[t])
                flat.emplace_back(surfaces_.patch[t], t);
            else
                bent.push_back(t);
        }
        if (!bent.empty())
            addCurvedFace(bent, {}, open);
        std::ranges::sort(flat);
        for (size_t begin = 0; begin < flat.size();) {
            const uint32_t patch = flat[begin].first;
            std::vector<uint32_t> part;
            for (; begin < flat.size() && flat[begin].first == patch; ++begin)
                part.push_back(flat[begin].second);
            const bool outlined =
                options_.edges == EdgeLook::Visible && !mesh_.triangles[part[0]].back;
            addCurvedFace(part,
                          outlined ? loopsOf(borders_[patch], surfaces_.patchNormal[patch])
                                   : std::vector<NewLoop>{},
                          open);
        }
    }

    void addCurvedFace(std::span<const uint32_t> triangles, std::vector<NewLoop> loops, bool open) {
        NewFace face = faceOf(triangles);
        face.outward = meanNormal(triangles);
        if (length(face.outward) == 0.0)
            face.outward = mesh_.normals[triangles[0]];
        face.normals.reserve(face.corners.size());
        for (const uint32_t t : triangles)
            for (size_t i = 0; i < 3; ++i) {
                const Vec3 n = surfaces_.cornerNormals[t * size_t{3} + i];
                face.normals.push_back(length(n) > 0.0 ? n : mesh_.normals[t]);
            }
        face.loops = std::move(loops);
        store_.add(face, grid_);
        ++report_.curvedFaces;
        if (open) {
            // Silhouettes are the rims of what faces away; without a back side the mesh of an open
            // surface would show as lines where one looks into it.
            turnOver(face);
            store_.add(face, grid_);
        }
    }

    static void turnOver(NewFace& face) {
        face.loops.clear();
        face.outward = -face.outward;
        for (size_t i = 0; i + 2 < face.corners.size(); i += 3) {
            std::swap(face.corners[i + 1], face.corners[i + 2]);
            std::swap(face.normals[i + 1], face.normals[i + 2]);
            if (!face.texCoords.empty())
                std::swap(face.texCoords[i + 1], face.texCoords[i + 2]);
        }
        for (Vec3& n : face.normals)
            n = -n;
    }

    /// Rims and creases of curved surfaces that no flat face draws. Faces without area carry them.
    void makeLines() {
        std::vector<OutlineEdge> lines;
        std::vector<uint32_t> triangleAt(mesh_.points.size(), 0);
        for (uint32_t h = 0; h < edges_.size(); ++h) {
            const HalfEdge& edge = edges_[h];
            if (!surfaces_.curved[edge.triangle] || surfaces_.soft[h])
                continue;
            if (edge.mate != kNoMate) {
                // A flat front draws its own outline; of two curved neighbours one does.
                const uint32_t u = edges_[edge.mate].triangle;
                if (surfaces_.curved[u] ? edge.mate < h : !mesh_.triangles[u].back)
                    continue;
            }
            lines.push_back({edge.from, edge.to});
            triangleAt[edge.from] = triangleAt[edge.to] = edge.triangle;
        }
        for (Chain& chain : chainLines(lines)) {
            straighten(chain, mesh_.points, options_.weldDistance);
            const uint32_t triangle = triangleAt[chain.points[0]];
            NewFace face;
            face.material = mesh_.triangles[triangle].material;
            face.flags = options_.faceFlags;
            face.outward = mesh_.normals[triangle];
            face.corners.assign(3, mesh_.gridPoints[chain.points[0]]);
            face.loops = lineLoops(chain, mesh_);
            store_.add(face, grid_);
        }
    }

    FaceStore& store_;
    const LoopGrid& grid_;
    const TriangleSoup& soup_;
    const SoupOptions& options_;
    const SoupMesh& mesh_;
    SoupReport& report_;
    std::vector<HalfEdge> edges_;
    Surfaces surfaces_;
    Groups borders_; ///< per patch its border's half-edges
};

} // namespace

SoupReport addSoupFaces(FaceStore& store, const LoopGrid& grid, const TriangleSoup& soup,
                        const SoupOptions& options, int materialCount) {
    SoupReport report;
    SoupOptions usable = options;
    usable.weldDistance = std::max(options.weldDistance, grid.step());
    const SoupMesh mesh = makeSoupMesh(grid, soup, usable, materialCount, report);
    if (!mesh.triangles.empty())
        FaceMaker(store, grid, soup, usable, mesh, report).makeAll();
    return report;
}

} // namespace ogl::host
