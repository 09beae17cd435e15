// Draws the quad of an icon.
// vertex, texCoord: a corner of the quad, and its place in the atlas.
// qt_Matrix: from the item to the clip space.
// coord: the place in the atlas, for the fragment.
attribute highp vec4 vertex;
attribute lowp  vec2 texCoord;
uniform highp mat4 qt_Matrix;
varying lowp vec2 coord;
void main() {
    gl_Position = qt_Matrix * vertex;
    coord = texCoord;
}
