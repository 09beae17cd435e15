#include "thumbnailmaterial_p.h"

#include <QtGui/QOpenGLShaderProgram>

namespace ta::ui {

namespace {

constexpr char kVertexShader[] = "attribute highp vec4 a_Vertex;          \n"
                                 "attribute highp vec2 a_TexCoord;        \n"
                                 "uniform highp mat4 qt_Matrix;           \n"
                                 "varying highp vec2 v_TexCoord;          \n"
                                 "void main() {                           \n"
                                 "    gl_Position = qt_Matrix * a_Vertex; \n"
                                 "    v_TexCoord = a_TexCoord;            \n"
                                 "}";

constexpr char kFragmentShader[] = "uniform lowp float qt_Opacity;                               \n"
                                   "uniform bool enabled;                                        \n"
                                   "uniform sampler2D source;                                    \n"
                                   "varying highp vec2 v_TexCoord;                               \n"
                                   "void main() {                                                \n"
                                   "    if (enabled) {                                           \n"
                                   "        gl_FragColor = texture2D(source, v_TexCoord)         \n"
                                   "            * qt_Opacity;                                    \n"
                                   "    } else {                                                 \n"
                                   "        lowp vec4 c = texture2D(source, v_TexCoord);         \n"
                                   "        lowp float g = dot(c.rgb, vec3(0.344, 0.5, 0.156));  \n"
                                   "        gl_FragColor = vec4(g, g, g, 1.0) * c.a * .5         \n"
                                   "           * qt_Opacity;                                     \n"
                                   "    }}";

} // namespace

QSGMaterialShader *ThumbnailShader::createShader()
{
    return new ThumbnailShader;
}

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED // Qt 6 has no simple materials
    ThumbnailMaterial *
    ThumbnailShader::createMaterial()
{
    auto *material = new ThumbnailMaterial(createShader);
    material->setFlag(QSGMaterial::Blending);
    return material;
}
QT_WARNING_POP

QList<QByteArray> ThumbnailShader::attributes() const
{
    return { QByteArrayLiteral("a_Vertex"), QByteArrayLiteral("a_TexCoord") };
}

const char *ThumbnailShader::vertexShader() const
{
    return kVertexShader;
}

const char *ThumbnailShader::fragmentShader() const
{
    return kFragmentShader;
}

void ThumbnailShader::resolveUniforms()
{
    m_source = program()->uniformLocation("source");
    program()->setUniformValue(m_source, 0); // the texture unit
    m_enabled = program()->uniformLocation("enabled");
}

void ThumbnailShader::updateState(const ThumbnailState *state, const ThumbnailState *oldState)
{
    if (!oldState || oldState->enabled != state->enabled)
        program()->setUniformValue(m_enabled, GLint(state->enabled));
    if (!oldState || oldState->texture != state->texture)
        state->texture->bind();
}

} // namespace ta::ui
