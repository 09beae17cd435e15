#include "iconmaterial_p.h"

#include <QtGui/QOpenGLShaderProgram>

namespace ta::ui {

int IconState::compare(const IconState *other) const
{
    if (!qFuzzyCompare(highlight, other->highlight))
        return highlight < other->highlight ? -1 : 1;
    if (!qFuzzyCompare(disabled, other->disabled))
        return disabled < other->disabled ? -1 : 1;
    if (highlightColor.rgba() != other->highlightColor.rgba())
        return int(highlightColor.rgba() - other->highlightColor.rgba());
    if (texture == other->texture)
        return 0;
    return texture < other->texture ? 1 : -1;
}

IconShader::IconShader()
{
    setShaderSourceFile(QOpenGLShader::Vertex, QStringLiteral(":/ui/shaders/icon_legacy.vert"));
    setShaderSourceFile(QOpenGLShader::Fragment, QStringLiteral(":/ui/shaders/icon_legacy.frag"));
}

QSGMaterialShader *IconShader::createShader()
{
    return new IconShader;
}

QList<QByteArray> IconShader::attributes() const
{
    return { QByteArrayLiteral("vertex"), QByteArrayLiteral("texCoord") };
}

void IconShader::resolveUniforms()
{
    program()->setUniformValue("tex", 0);
    m_disabled = program()->uniformLocation("disabled");
    m_highlight = program()->uniformLocation("highlight");
    m_highlightColor = program()->uniformLocation("highlightColor");
}

void IconShader::updateState(const IconState *state, const IconState *oldState)
{
    if (!oldState || oldState->texture != state->texture) {
        state->texture->setFiltering(QSGTexture::Linear);
        state->texture->bind();
    }
    if (!oldState || !qFuzzyCompare(oldState->disabled, state->disabled))
        program()->setUniformValue(m_disabled, state->disabled);
    if (!oldState || !qFuzzyCompare(oldState->highlight, state->highlight))
        program()->setUniformValue(m_highlight, state->highlight);
    if (!oldState || oldState->highlightColor != state->highlightColor)
        program()->setUniformValue(m_highlightColor, state->highlightColor);
}

} // namespace ta::ui
