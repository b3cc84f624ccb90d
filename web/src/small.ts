// The script of a page without 3D.
import { startPage } from "./page/start.ts";

startPage(null);
