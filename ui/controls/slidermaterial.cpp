#include "slidermaterial_p.h"

#include <QtGui/QOpenGLShaderProgram>

namespace ta::ui {

namespace {

class SliderShader : public QSGMaterialShader
{
public:
    const char *const *attributeNames() const override
    {
        static const char *const names[] = { "a_vertex", "a_distance", "a_color", nullptr };
        return names;
    }

    void updateState(const RenderState &state, QSGMaterial *, QSGMaterial *) override
    {
        if (state.isMatrixDirty())
            program()->setUniformValue(m_matrix, state.combinedMatrix());
        if (state.isOpacityDirty())
            program()->setUniformValue(m_opacity, state.opacity());
    }

protected:
    void initialize() override
    {
        m_matrix = program()->uniformLocation("u_matrix");
        m_opacity = program()->uniformLocation("u_opacity");
    }

    const char *vertexShader() const override
    {
        return R"(
            attribute highp vec4 a_vertex;
            attribute mediump vec2 a_distance;
            attribute lowp vec4 a_color;
            uniform highp mat4 u_matrix;
            varying mediump vec2 v_distance;
            varying lowp vec4 v_color;

            void main()
            {
                v_distance = a_distance;
                v_color = a_color;
                gl_Position = u_matrix * a_vertex;
            }
        )";
    }

private:
    int m_matrix = -1;
    int m_opacity = -1;
};

class SliderAAShader : public SliderShader
{
protected:
    const char *fragmentShader() const override
    {
        return R"(
            #ifdef GL_ES
            #extension GL_OES_standard_derivatives : enable
            #endif
            uniform lowp float u_opacity;
            varying mediump vec2 v_distance;
            varying lowp vec4 v_color;

            void main()
            {
                mediump vec2 fw = fwidth(v_distance);
                mediump vec2 alpha = 1.0 - smoothstep(1.0 - fw, vec2(1.0), abs(v_distance));
                gl_FragColor = v_color * min(alpha.x, alpha.y) * u_opacity;
            }
        )";
    }
};

class SliderSimpleShader : public SliderShader
{
protected:
    const char *fragmentShader() const override
    {
        return R"(
            uniform lowp float u_opacity;
            varying lowp vec4 v_color;

            void main()
            {
                gl_FragColor = v_color * u_opacity;
            }
        )";
    }
};

} // namespace

QSGMaterialType *SliderAAMaterial::type() const
{
    static QSGMaterialType type;
    return &type;
}

QSGMaterialShader *SliderAAMaterial::createShader() const
{
    return new SliderAAShader;
}

int SliderAAMaterial::compare(const QSGMaterial *) const
{
    return 0;
}

QSGMaterialType *SliderSimpleMaterial::type() const
{
    static QSGMaterialType type;
    return &type;
}

QSGMaterialShader *SliderSimpleMaterial::createShader() const
{
    return new SliderSimpleShader;
}

int SliderSimpleMaterial::compare(const QSGMaterial *) const
{
    return 0;
}

} // namespace ta::ui
