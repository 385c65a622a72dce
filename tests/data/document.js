function initObjects()
{
for (var i = 0; i < Scene.objects.length; i++)
{
	var object=Scene.objects[i];
	gl.deleteBuffer(object.vertexBuffer);
	gl.deleteBuffer(object.normalBuffer);
	gl.deleteBuffer(object.texcoordBuffer);
   if (object.hasDiffuseTex==1)
		gl.deleteTexture(object.renderTexture.diffuseTex);
}
Scene.objects.length=0;
var object=null;
object=new RenderObject();
object.vertices=[@positions@];
object.normals=[@normals@];
object.texuvs=[@texuvs@];
object.numVertices=@count@;
object.diffuseMat=[@diffuse@];
object.specularMat=[@specular@];
object.hasDiffuseTex=@hasTexture@;
object.diffuseTexFN="@link@";
Scene.addObject(object);
gl.bindBuffer(gl.ARRAY_BUFFER, null);

object=new RenderObject();
var height=-0.1;
object.vertices=[	 -0.5,-0.5, height,  -0.5,1.5, height,  2.5,-0.5, height,     2.5,-0.5, height,  -0.5,1.5, height,  2.5,1.5, height];
object.normals=[0.0,0.0,1.0,   0.0,0.0,1.0,    0.0,0.0,1.0,    0.0,0.0,1.0,    0.0,0.0,1.0,    0.0,0.0,1.0];
object.texuvs=[0.0,0.0,  1.0,0.0,  0.0,1.0,  1.0,0.0,    0.0,1.0,   1.0,1.0];
object.numVertices=6;
object.diffuseMat=[1.0,0.0,0.0,1.0];
object.specularMat=[1.0,1.0,1.0,1.0];
object.hasDiffuseTex=0;
object.diffuseTexFN=null;
Scene.addObject(object);
gl.bindBuffer(gl.ARRAY_BUFFER, null);

sceneCenter=vec3.fromValues( @center@);
eyeVec=vec3.fromValues( @eye@);
homeEyeVec=vec3.fromValues( @eye@);
homeSceneCenter=vec3.fromValues( @center@);
}

function initTextures()
{
	for (var i = 0; i < Scene.objects.length; i++)
	{
		var object = Scene.objects[i];
		if (object.hasDiffuseTex==1)
			object.renderTexture.setImage(object.diffuseTexFN);
	}
}

function initRenderer()
{
var canvas = document.getElementById("imageScript_canvas");
canvas.onmousedown = handleMouseDown;
document.onmouseup = handleMouseUp;
document.onmousemove = handleMouseMove;
document.onmousewheel = handleMouseWheel;
gl.frontFace(gl.CW);
gl.enable(gl.CULL_FACE);
gl.clearColor(@background@,1.0);
if (objPrg!=null)
	gl.deleteProgram(objPrg);
objPrg=initProgram("@objectVertex@","@objectFragment@"); 
gl.useProgram(objPrg);
objPrg.vertPos		    = gl.getAttribLocation(objPrg, "vertPos");
objPrg.vertNormal		= gl.getAttribLocation(objPrg, "vertNormal");
objPrg.vertUV			= gl.getAttribLocation(objPrg, "vertUV");
objPrg.eyePos			= gl.getUniformLocation(objPrg, "eyePos");
objPrg.viewProjMat			= gl.getUniformLocation(objPrg, "viewProjMat");
objPrg.lightViewProjMat	= gl.getUniformLocation(objPrg, "lightViewProjMat");
objPrg.shadowMap		= gl.getUniformLocation(objPrg, "shadowMap");
objPrg.diffuseTex      = gl.getUniformLocation(objPrg, "diffuseTex");
objPrg.diffuseMat      = gl.getUniformLocation(objPrg, "diffuseMat");
objPrg.specularMat     = gl.getUniformLocation(objPrg, "specularMat");
objPrg.hasDiffuseTex	= gl.getUniformLocation(objPrg, "hasDiffuseTex");
objPrg.lightDir		= gl.getUniformLocation(objPrg, "lightDir");
objPrg.lightIntensity	= gl.getUniformLocation(objPrg, "lightIntensity");
objPrg.ambientFactor	= gl.getUniformLocation(objPrg, "ambientFactor");
var lightViewMatrix=mat4.create();
mat4.lookAt(lightViewMatrix, [@lightEye@], [@lightTarget@], [0.0,0.0,1.0]);var lightProjMatrix=mat4.create();
mat4.ortho(lightProjMatrix, @halfSizes@, @near@,@far@);
var lightViewProjMatrix=mat4.create();
mat4.multiply(lightViewProjMatrix, lightProjMatrix, lightViewMatrix );
gl.uniformMatrix4fv(objPrg.lightViewProjMat, false, lightViewProjMatrix);
gl.uniform3f(objPrg.lightDir, @toLight@);
gl.uniform3f(objPrg.lightIntensity, @intensity@);
gl.uniform1f(objPrg.ambientFactor, @ambient@);
gl.useProgram(null);
if (uiPrg!=null)
	gl.deleteProgram(uiPrg);
uiPrg=initProgram("attribute vec3	vertPos; attribute vec2	vertUV; uniform mat4	viewProjMat;  varying vec2	texcoord; void main() { texcoord		= vertUV; gl_Position		= viewProjMat*vec4(vertPos, 1.0);}", "precision mediump float; varying vec2		texcoord; uniform vec4 color; uniform sampler2D	diffuseTex; void main(){ vec4 diffTex=texture2D(diffuseTex, texcoord); gl_FragColor = vec4(diffTex*color);/*gl_FragColor = vec4(0.05,0.05,0.1,0.4);*/ }");
gl.useProgram(uiPrg);
uiPrg.vertPos		    = gl.getAttribLocation(uiPrg, "vertPos");
uiPrg.vertUV			= gl.getAttribLocation(uiPrg, "vertUV");
uiPrg.viewProjMat			= gl.getUniformLocation(uiPrg, "viewProjMat");
uiPrg.color			= gl.getUniformLocation(uiPrg, "color");
var uiViewMatrix=mat4.create();
mat4.identity(uiViewMatrix);
var uiProjMatrix=mat4.create();
mat4.ortho(uiProjMatrix, 0,@width@,0,@height@, 1,-1);
var uiViewProjMatrix=mat4.create();
mat4.multiply(uiViewProjMatrix, uiViewMatrix, uiProjMatrix);
gl.uniformMatrix4fv(uiPrg.viewProjMat, false, uiViewProjMatrix);
gl.useProgram(null);
arrowTex = gl.createTexture();
var greyTex = new Uint8Array(81);
var aL=200;
var aD=50;
var II=50;
var oo=80;
greyTex=[	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL];
gl.bindTexture(gl.TEXTURE_2D, arrowTex);
gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, 1);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, gl.LINEAR);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);
gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, 9, 9, 0, gl.RGBA, gl.UNSIGNED_BYTE,  new Uint8Array(greyTex) );
gl.bindTexture(gl.TEXTURE_2D, null);
homeTex = gl.createTexture();
var greyTex2 = new Uint8Array(81);
var aL=200;
var aD=50;
var II=50;
var oo=80;
greyTex2=[	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	II,II,II,aD,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	II,II,II,aD,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,			oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL,	oo,oo,oo,aL];
gl.bindTexture(gl.TEXTURE_2D, homeTex);
gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, 1);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, gl.LINEAR);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);
gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);
gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, 9, 9, 0, gl.RGBA, gl.UNSIGNED_BYTE,  new Uint8Array(greyTex2) );
gl.bindTexture(gl.TEXTURE_2D, null);
if (depthPrg!=null)
	gl.deleteProgram(depthPrg);
depthPrg=initProgram("@depthVertex@","@depthFragment@"); 
gl.useProgram(depthPrg);
depthPrg.vertPos		    = gl.getAttribLocation(depthPrg, "vertPos");
depthPrg.objColor		    = gl.getUniformLocation(depthPrg, "objColor");
depthPrg.viewProjMat			= gl.getUniformLocation(depthPrg, "viewProjMat");
gl.uniformMatrix4fv(depthPrg.viewProjMat, false, lightViewProjMatrix);
gl.useProgram(null);
viewFov=@fov@;
viewAspect=@aspect@;
viewWidth=@width@;
viewHeight=@height@;
viewZoom=0;
homeOrg=[0,0,0.0]; 
homeExt=[@extent@,0.0]; 
vec3.copy(dOrg, homeOrg );
vec3.copy(dExt, homeExt );
console.log("dOrg:", dOrg);
console.log("dExt:", dExt);
initUI();
initObjects();
updateCamera(0.0,0.0);
initTextures();
console.log("bboxDiag:", @diagonal@);
drawFrame();
}
initRenderer( );
