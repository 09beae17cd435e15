#include "checkerboardmaterial_p.h"

#include "foundation/assign.h"
#include "foundation/rounding.h"

#include <QtGui/QOpenGLShaderProgram>
#include <QtGui/QVector2D>
#include <QtGui/QVector4D>

namespace ta::ui {

namespace {

class CheckerBoardShader : public QSGMaterialShader
{
public:
    CheckerBoardShader();

    void updateState(const RenderState &state, QSGMaterial *newMaterial,
                     QSGMaterial *oldMaterial) override;
    char const *const *attributeNames() const override;

protected:
    void initialize() override;

private:
    void uploadTileSize(const RenderState &state, const CheckerBoardMaterial *material);
    void uploadColor(int location, const QColor &color);

    int m_opacity = -1;
    int m_matrix = -1;
    int m_tileSize = -1;
    int m_pixelSize = -1;
    int m_color0 = -1;
    int m_color1 = -1;
};

CheckerBoardShader::CheckerBoardShader()
{
    setShaderSourceFile(QOpenGLShader::Vertex, QStringLiteral(":/ui/shaders/checkerboard.vert"));
    setShaderSourceFile(QOpenGLShader::Fragment, QStringLiteral(":/ui/shaders/checkerboard.frag"));
}

char const *const *CheckerBoardShader::attributeNames() const
{
    static const char *const names[] = { "ta_Vertex", nullptr };
    return names;
}

void CheckerBoardShader::initialize()
{
    m_opacity = program()->uniformLocation("ta_Opacity");
    m_matrix = program()->uniformLocation("ta_Matrix");
    m_tileSize = program()->uniformLocation("ta_TileSize");
    m_pixelSize = program()->uniformLocation("ta_PixelSize");
    m_color0 = program()->uniformLocation("ta_Color0");
    m_color1 = program()->uniformLocation("ta_Color1");
}

void CheckerBoardShader::updateState(const RenderState &state, QSGMaterial *newMaterial,
                                     QSGMaterial *oldMaterial)
{
    const auto *material = static_cast<const CheckerBoardMaterial *>(newMaterial);
    const auto *old = static_cast<const CheckerBoardMaterial *>(oldMaterial);

    if (state.isOpacityDirty())
        program()->setUniformValue(m_opacity, state.opacity());
    if (state.isMatrixDirty())
        program()->setUniformValue(m_matrix, state.combinedMatrix());
    if (!old || material->tileSize() != old->tileSize())
        uploadTileSize(state, material);
    if (!old || material->color0() != old->color0())
        uploadColor(m_color0, material->color0());
    if (!old || material->color1() != old->color1())
        uploadColor(m_color1, material->color1());
    if (!old) {
        // One device pixel in normalised device coordinates.
        const QRect viewport = state.viewportRect();
        program()->setUniformValue(m_pixelSize, QVector2D(2.0f / viewport.width(),
                                                          qAbs(2.0f / viewport.height())));
    }
}

void CheckerBoardShader::uploadTileSize(const RenderState &state,
                                        const CheckerBoardMaterial *material)
{
    program()->setUniformValue(m_tileSize,
                               truncated(material->tileSize() * state.devicePixelRatio()));
}

void CheckerBoardShader::uploadColor(int location, const QColor &color)
{
    const qreal alpha = color.alphaF();
    program()->setUniformValue(location,
                               QVector4D(float(color.redF() * alpha), float(color.greenF() * alpha),
                                         float(color.blueF() * alpha), float(alpha)));
}

} // namespace

CheckerBoardMaterial::CheckerBoardMaterial()
{
    setFlag(RequiresFullMatrix);
}

QSGMaterialType *CheckerBoardMaterial::type() const
{
    static QSGMaterialType type; // all boards of all windows; only its address matters
    return &type;
}

QSGMaterialShader *CheckerBoardMaterial::createShader() const
{
    return new CheckerBoardShader;
}

int CheckerBoardMaterial::compare(const QSGMaterial *other) const
{
    const auto *board = static_cast<const CheckerBoardMaterial *>(other);
    if (m_color0 != board->m_color0)
        return int(m_color0.rgba() - board->m_color0.rgba());
    if (m_color1 != board->m_color1)
        return int(m_color1.rgba() - board->m_color1.rgba());
    return m_tileSize - board->m_tileSize;
}

bool CheckerBoardMaterial::update(int tileSize, const QColor &color0, const QColor &color1)
{
    bool changed = assign(m_tileSize, tileSize);
    changed = assign(m_color0, color0) || changed;
    changed = assign(m_color1, color1) || changed;
    const bool blending = m_color0.alphaF() < 1.0 || m_color1.alphaF() < 1.0;
    if (flags().testFlag(Blending) == blending)
        return changed;
    setFlag(Blending, blending);
    return true;
}

} // namespace ta::ui
