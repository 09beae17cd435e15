// QSGSimpleMaterial is what Qt 5 has for a shader of three uniforms. It counts as deprecated
// since 5.15, in favour of a class that is longer to write, so this file asks for what 5.14 had.
#undef QT_DISABLE_DEPRECATED_BEFORE
#define QT_DISABLE_DEPRECATED_BEFORE 0x050E00

#include "bordernode_p.h"

#include "bordergeometry_p.h"

#include <QtGui/QOpenGLShaderProgram>
#include <QtQuick/QSGFlatColorMaterial>
#include <QtQuick/QSGSimpleMaterial>

#include <algorithm>
#include <tuple>

namespace ta::ui {

namespace {

// Built when the library is loaded, before there is any render thread, and only read afterwards.
const QSGGeometry::Attribute DashedBorderPoint2D_Attributes[] = {
    QSGGeometry::Attribute::create(0, 2, QSGGeometry::FloatType, true),
    QSGGeometry::Attribute::create(1, 1, QSGGeometry::FloatType, false),
};
const QSGGeometry::AttributeSet DashedBorderPoint2D_AttributeSet = {
    2, sizeof(DashedBorderVertex), DashedBorderPoint2D_Attributes
};

class DashedBorderShader : public QSGSimpleMaterialShader<DashedBorderData>
{
public:
    static QSGMaterialShader *createShader() { return new DashedBorderShader; }

    using QSGSimpleMaterialShader::updateState;
    void updateState(const DashedBorderData *data, const DashedBorderData *old) override;
    void resolveUniforms() override;
    QList<QByteArray> attributes() const override;

protected:
    const char *vertexShader() const override;
    const char *fragmentShader() const override;

private:
    int m_color = -1;
    int m_dash = -1;
    int m_gap = -1;
};

const char *DashedBorderShader::vertexShader() const
{
    return "attribute highp vec4  vertex;         \n"
           "attribute lowp  float distance;       \n"
           "                                      \n"
           "uniform highp mat4 qt_Matrix;         \n"
           "                                      \n"
           "varying lowp float d;                 \n"
           "void main() {                         \n"
           "    gl_Position = qt_Matrix * vertex; \n"
           "    d = distance;                     \n"
           "}";
}

const char *DashedBorderShader::fragmentShader() const
{
    return "uniform lowp float qt_Opacity;                  \n"
           "uniform lowp vec4  color;                       \n"
           "uniform lowp float dash;                        \n"
           "uniform lowp float gap;                         \n"
           "                                                \n"
           "varying lowp float d;                           \n"
           "                                                \n"
           "void main() {                                   \n"
           "   mediump float cut = mod(d, dash + gap);      \n"
           "   gl_FragColor = color *                       \n"
           "          (1.0 - step(dash, cut)) * qt_Opacity; \n"
           "}";
}

QList<QByteArray> DashedBorderShader::attributes() const
{
    return { QByteArrayLiteral("vertex"), QByteArrayLiteral("distance") };
}

void DashedBorderShader::resolveUniforms()
{
    m_color = program()->uniformLocation("color");
    m_dash = program()->uniformLocation("dash");
    m_gap = program()->uniformLocation("gap");
}

void DashedBorderShader::updateState(const DashedBorderData *data, const DashedBorderData *old)
{
    program()->setUniformValue(m_color, data->red, data->green, data->blue, data->alpha);
    if (!old || !qFuzzyCompare(data->dash, old->dash))
        program()->setUniformValue(m_dash, data->dash);
    if (!old || !qFuzzyCompare(data->gap, old->gap))
        program()->setUniformValue(m_gap, data->gap);
}

using DashedBorderMaterial = QSGSimpleMaterialComparableMaterial<DashedBorderData>;

DashedBorderMaterial *createDashedMaterial()
{
    auto *material = new DashedBorderMaterial(DashedBorderShader::createShader);
    material->setFlag(QSGMaterial::Blending);
    return material;
}

} // namespace

int DashedBorderData::compare(const DashedBorderData *other) const
{
    const auto values = [](const DashedBorderData *data) {
        return std::tie(data->red, data->green, data->blue, data->alpha, data->dash, data->gap);
    };
    return values(this) < values(other) ? -1 : int(values(other) < values(this));
}

SolidBorderNode::SolidBorderNode()
{
    auto *geometry = new QSGGeometry(QSGGeometry::defaultAttributes_Point2D(),
                                     int(std::tuple_size_v<SolidBorderVertices>),
                                     int(kSolidBorderIndices.size()));
    geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
    std::copy(kSolidBorderIndices.begin(), kSolidBorderIndices.end(),
              geometry->indexDataAsUShort());
    setGeometry(geometry);
    setMaterial(new QSGFlatColorMaterial);
    setFlags(OwnsGeometry | OwnsMaterial);
}

void SolidBorderNode::updateGeometry(const QSizeF &size, float borderWidth)
{
    const SolidBorderVertices vertices = solidBorderVertices(size, borderWidth);
    std::copy(vertices.begin(), vertices.end(), geometry()->vertexDataAsPoint2D());
    markDirty(DirtyGeometry);
}

void SolidBorderNode::updateMaterial(const QColor &color, float, float)
{
    static_cast<QSGFlatColorMaterial *>(material())->setColor(color);
    markDirty(DirtyMaterial);
}

DashedBorderNode::DashedBorderNode()
{
    auto *geometry = new QSGGeometry(DashedBorderPoint2D_AttributeSet,
                                     int(std::tuple_size_v<DashedBorderVertices>),
                                     int(kDashedBorderIndices.size()));
    geometry->setDrawingMode(QSGGeometry::DrawTriangles);
    std::copy(kDashedBorderIndices.begin(), kDashedBorderIndices.end(),
              geometry->indexDataAsUShort());
    setGeometry(geometry);
    setMaterial(createDashedMaterial());
    setFlags(OwnsGeometry | OwnsMaterial);
}

void DashedBorderNode::updateGeometry(const QSizeF &size, float borderWidth)
{
    const DashedBorderVertices vertices = dashedBorderVertices(size, borderWidth);
    std::copy(vertices.begin(), vertices.end(),
              static_cast<DashedBorderVertex *>(geometry()->vertexData()));
    markDirty(DirtyGeometry);
}

void DashedBorderNode::updateMaterial(const QColor &color, float dashWidth, float gapWidth)
{
    DashedBorderData *data = static_cast<DashedBorderMaterial *>(material())->state();
    data->red = float(color.redF());
    data->green = float(color.greenF());
    data->blue = float(color.blueF());
    data->alpha = float(color.alphaF());
    data->dash = dashWidth;
    data->gap = gapWidth;
    markDirty(DirtyMaterial);
}

} // namespace ta::ui
