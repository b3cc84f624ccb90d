// The script of a page with 3D.
import { startPage } from "./page/start.ts";
import { makeScene } from "./scene/scene.ts";

startPage(makeScene);
