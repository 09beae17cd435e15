/*
 * Squares of a fixed size on the screen: hands the fragment shader the distance from the item's
 * own origin in device pixels, along the axes of the screen.
 */
attribute highp vec4 ta_Vertex;
uniform highp mat4 ta_Matrix;
uniform highp vec2 ta_PixelSize;
varying highp vec2 v_PixelPos;
void main(void)
{
    gl_Position = ta_Matrix * ta_Vertex;
    highp vec4 topLeft = ta_Matrix * vec4(vec3(0.0), 1.0);
    v_PixelPos = (gl_Position.xy - topLeft.xy) / ta_PixelSize;
}
